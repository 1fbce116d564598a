// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "phone/simulated_phone.h"

// A simulated phone behind the host's callbacks: pass ScriptedPhone::Read and ScriptedPhone::Send
// to Velmor_Initialise. There is one; Play replaces it and clears the records.
class ScriptedPhone {
  public:
    static void Play(const Profile& profile);
    // The text of a profile, for instance "echo = off\nAT+CGMI: Acme\n".
    static void Play(const std::string& text) { Play(ParseProfile(text, "script")); }

    static long Read(char* buffer, long count, long timeout);
    static long Send(const char* buffer, long length);

    static inline long reads = 0;                 // calls of Read, the failed ones included
    static inline long timeout = 0;               // what the last one got
    static inline std::vector<std::string> sent;  // what each call of Send got

  private:
    static inline std::optional<SimulatedPhone> phone_;
};
