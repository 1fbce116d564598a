// SPDX-License-Identifier: MIT
#pragma once

#include "device/exchange.h"
#include "phone/simulated_phone.h"
#include "tests/support/session.h"

// A simulated phone behind the host's callbacks: pass ScriptedPhone::Read and ScriptedPhone::Send
// to Velmor_Initialise. There is only one. Play replaces it and forgets what was sent.
struct ScriptedPhone {
    static inline std::optional<tool::SimulatedPhone> phone;
    static inline long reads = 0;                 // calls of Read, also those that failed
    static inline long timeout = 0;               // what the last one got
    static inline std::vector<std::string> sent;  // what each call of Send got
    static inline std::vector<tool::Exchange> dialogue;

    static void Play(const tool::Profile& profile) {
        phone.emplace(profile);
        reads = timeout = 0;
        sent.clear();
        dialogue.clear();
    }
    // What the phone says to these bytes, up to a pause.
    static std::string Answer(const std::string& bytes) {
        std::string said;
        phone->Receive(bytes);
        for (std::optional<char> byte; (byte = phone->Next());) {
            said += *byte;
        }
        return said;
    }
    // The text of a profile, for instance "echo = off\nAT+CGMI: Acme\n".
    static void Play(const std::string& text) { Play(tool::ParseProfile(text, "script")); }

    static long Read(char* buffer, long count, long readTimeout) {
        ++reads;
        timeout = readTimeout;
        const std::optional<char> next = count == 1 ? phone->Next() : std::nullopt;
        *buffer = next.value_or('\0');
        if (next && !dialogue.empty()) {
            dialogue.back().answer += *next;
        }
        return next ? 1 : 0;
    }
    static long Send(const char* buffer, long length) {
        sent.emplace_back(buffer, static_cast<std::size_t>(length));
        dialogue.push_back({sent.back(), ""});
        return static_cast<long>(phone->Receive(sent.back()));
    }
};

// A session that talks to the scripted phone.
class PhoneTest : public SessionTest {
  protected:
    static void Start(const SampleSource& source = {}) {
        ASSERT_EQ(Initialise(source.text(), ScriptedPhone::Read, ScriptedPhone::Send), 0);
    }
};
