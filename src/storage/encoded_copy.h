// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// Whether reading a catalogue writes its ".encode" copy beside it. The library always does. A tool
// that only looks at a catalogue may not write where it lies.
enum class EncodedCopy { kWrite, kSkip };

}  // namespace vel
