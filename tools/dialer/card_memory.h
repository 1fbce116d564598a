// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tool {

// How a card went online last.
struct Remembered {
    std::string accessPoint;
    std::string user;
    std::string dialled;     // the dial command that was answered with CONNECT
    std::string types = {};  // of the PDP contexts, with blanks between them
};

// The folder, or the usual one when it is empty: that of a service, else /var/lib/velmor.
std::string StateFolder(const std::string& folder);

// A file that remembers how cards went online. It holds no password, and no number of a card: the
// number is stored as a salted hash (crypt(3)), slow to try out, because an IMSI has few digits.
class CardMemory {
  public:
    // `folder` may be missing. A file that cannot be read or is damaged counts as empty; Problem()
    // then says why.
    explicit CardMemory(const std::string& folder);

    const std::string& Problem() const { return problem_; }
    // `number`: the ICCID or IMSI.
    std::optional<Remembered> Find(const std::string& number) const;
    // Writes the file beside its place and renames it. Throws a ToolError when that fails.
    void Remember(const std::string& number, const Remembered& way);

  private:
    struct Card {
        std::string hash;
        Remembered way;
    };

    std::string path_;
    std::string problem_;
    std::vector<Card> cards_;  // the last one first
};

}  // namespace tool
