// SPDX-License-Identifier: MIT
#include "import/xml_file.h"

#include <algorithm>
#include <cstring>

#include "support/error.h"
#include "support/input_file.h"

namespace tool {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

std::size_t LineFeeds(const std::string& bytes, std::size_t begin, std::size_t end) {
    const char* const data = bytes.data();
    return static_cast<std::size_t>(std::count(data + begin, data + end, '\n'));
}

}  // namespace

XmlFile::XmlFile(std::string path, const char* root, const char* what)
    : path_(std::move(path)), bytes_(ReadInput(path_)) {
    if (bytes_.compare(0, std::strlen(kByteOrderMark), kByteOrderMark) == 0) {
        bytes_.erase(0, std::strlen(kByteOrderMark));
    }
    const pugi::xml_parse_result result =
        document_.load_buffer(bytes_.data(), bytes_.size(),
                              pugi::parse_default | pugi::parse_doctype | pugi::parse_comments);
    if (!result) {
        const auto offset = std::min(static_cast<std::size_t>(result.offset), bytes_.size());
        throw ToolError(path_, ":", LineFeeds(bytes_, 0, offset) + 1, ": is no well-formed XML (",
                        result.description(), "); --help names the file that is meant");
    }
    utf8_ = result.encoding == pugi::encoding_utf8;
    for (const pugi::xml_node& node : document_.children()) {
        // The parser does not replace them, so values would keep their names.
        if (node.type() == pugi::node_doctype && std::strstr(node.value(), "<!ENTITY") != nullptr) {
            throw ToolError(path_, ": defines entities; write the values themselves");
        }
    }
    root_ = document_.child(root);
    if (!root_) {
        throw ToolError(path_, ": is not ", what);
    }
}

void XmlFile::RequireUtf8() const {
    if (!utf8_) {
        throw ToolError(path_, ": is not in UTF-8; convert it, for example with iconv(1)");
    }
}

std::size_t XmlFile::Line(const pugi::xml_node& node) {
    const auto offset = static_cast<std::size_t>(node.offset_debug());
    line_ += LineFeeds(bytes_, offset_, offset);
    offset_ = offset;
    return line_;
}

}  // namespace tool
