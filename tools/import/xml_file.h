// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>
#include <string>

namespace tool {

// An XML file of operators' data. The constructor throws a ToolError when the file cannot be read,
// is not well formed, defines entities, or has another root element. `what`: what such a file is.
class XmlFile {
  public:
    XmlFile(std::string path, const char* root, const char* what);

    pugi::xml_node Root() const { return root_; }
    // Throws a ToolError unless the file is in UTF-8. Only then Line is right.
    void RequireUtf8() const;
    // The line of a node. The nodes must come in their order.
    std::size_t Line(const pugi::xml_node& node);

  private:
    std::string path_;
    std::string bytes_;  // without a byte order mark
    pugi::xml_document document_;
    pugi::xml_node root_;
    bool utf8_ = true;
    std::size_t offset_ = 0;  // an offset in bytes_
    std::size_t line_ = 1;    // its line
};

}  // namespace tool
