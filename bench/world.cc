// SPDX-License-Identifier: MIT
#include "world.h"

#include <fstream>
#include <stdexcept>

#include "storage/crypt.h"
#include "storage/record_splitter.h"

namespace {

std::vector<std::string> ReadLines(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    if (lines.empty()) {
        throw std::runtime_error("no lines in " + path);
    }
    return lines;
}

bool Holds(const std::string& line, const char* text) {
    return line.find(text) != std::string::npos;
}

void AddPhones(std::vector<std::string>& lines, const std::string& table, int phones) {
    for (int i = 0; i < phones; ++i) {
        const std::string id = std::to_string(900000 + i);
        std::string line = table == "Phones" ? "E#" : "E#1#MODEL";
        line.append(id).append(table == "Phones" ? "#Model#1#" : "#");
        line.append(table == "Phones" ? "" : id + "#");
        lines.push_back(line);
    }
}

}  // namespace

World::World(const std::string& source, int scale, int phones)
    : path("world-" + std::to_string(scale) + "-" + std::to_string(phones)) {
    std::vector<std::string> table;
    std::string name;
    for (const std::string& line : ReadLines(source)) {
        if (Holds(line, "$_TABLE_END_$")) {
            for (int i = 0; i < scale; ++i) {
                lines.insert(lines.end(), table.begin(), table.end());
            }
            if (name == "Phones" || name == "PhoneIdentification") {
                AddPhones(lines, name, phones);
            }
            name.clear();
        }
        (name.empty() ? lines : table).push_back(line);
        if (Holds(line, "$_TABLE_BEGIN_$")) {
            const std::size_t start = line.find("$#") + 2;
            name = line.substr(start, line.find('#', start) - start);
            table.clear();
        }
    }

    std::ofstream file(path);
    vel::ArrayCrypter crypter;
    vel::Record fields;
    for (const std::string& line : lines) {
        stored.emplace_back(crypter.Encrypt(line.c_str()).c_str());
        file << stored.back() << '\n';
        if (vel::SplitRecord(line.c_str(), '#', fields) && !Holds(line, "#$_")) {
            ++rows;
            cells += fields.get_Count();
        }
    }
}
