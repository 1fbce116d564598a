// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"

namespace vel {

// A phone's answer to one AT command (ITU-T V.250). It does no input or output: the bytes go in one
// at a time. A line that ends with a final result code ends the answer.
class ATAnswer {
  public:
    enum class State {
        kOpen,  // no final line yet
        kOk,
        kError,
    };

    // Takes the next byte. REQUIRES: the answer is open.
    void Take(char byte);

    State get_State() const { return state_; }
    // All bytes so far, with the echo of the command and the final line.
    const String& All() const { return all_; }

    // The relevant line without its line end; empty when there is none, as after ERROR.
    //
    // command  as it was sent, with its terminator
    // lineI    which line is relevant. Negative, or the answer is still open: the last line of at
    //          least three characters before the final one. The echo counts, so an answer without
    //          data yields the command. 0 or more: the line at that position. The echo and empty
    //          lines do not count, the final "OK" does. For compatibility an answer that begins
    //          with a line break, as that of a phone without echo, has no lines in this mode.
    String Line(const String& command, int lineI) const;

  private:
    String all_;
    String line_;  // the current line so far
    String last_;  // the last line of at least three characters
    State state_ = State::kOpen;
};

}  // namespace vel
