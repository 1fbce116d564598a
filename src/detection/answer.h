// SPDX-License-Identifier: MIT
#pragma once

#include "detection/final_result.h"
#include "foundation/string.h"

namespace vel {

// A phone's answer to an AT command (ITU-T V.250), which takes the bytes singly and does no input
// or output. A line that ends with a final result code ends the answer.
class ATAnswer {
  public:
    // Takes the next byte. REQUIRES: no result yet.
    void Take(char byte);

    FinalResult get_Result() const { return result_; }
    // All bytes so far, with the echo of the command and the final line.
    const String& All() const { return all_; }

    // The relevant line without its line end; empty without such a line, as after ERROR.
    //
    // command  as it was sent, with its terminator
    // lineI    which line is relevant. Negative, or there is no result yet: the last line of at
    //          least three characters before the final line. The echo counts, so an answer without
    //          data yields the command. 0 or more: the line at that position. The echo and empty
    //          lines do not count, the final "OK" does. For compatibility an answer that begins
    //          with a line break, as that of a phone without echo, has no lines in this mode.
    String Line(const String& command, int lineI) const;

  private:
    String all_;
    String line_;  // the current line so far
    String last_;  // the last line of at least three characters
    FinalResult result_ = FinalResult::kNone;
};

}  // namespace vel
