// SPDX-License-Identifier: MIT
#include "storage/file.h"

namespace vel {

File::File(const char* path, accesstype type) : path_(path == nullptr ? "" : path), type_(type) {}

File::~File() {
    closeFile();
}

bool File::openFile() {
    closeFile();
    static const char* const kModes[] = {"r", "w", "a"};
    if (type_ >= accessRead && type_ <= accessAppend) {
        stream_ = std::fopen(path_.c_str(), kModes[type_]);
    }
    return stream_ != nullptr;
}

void File::closeFile() {
    if (stream_ != nullptr) {
        std::fclose(stream_);
        stream_ = nullptr;
    }
    failed_ = false;
}

bool File::readLine(String* line) {
    line->Clear();
    if (stream_ == nullptr || failed_ || std::feof(stream_) != 0) {
        return false;
    }
    int byte = std::fgetc(stream_);
    for (; byte != EOF && byte != '\n'; byte = std::fgetc(stream_)) {
        if (byte != '\r') {
            line->Append(static_cast<char>(byte));
        }
    }
    failed_ = byte == EOF && std::feof(stream_) == 0;
    return !failed_ || !line->IsEmpty();
}

bool File::writeLine(String& line) {
    if (stream_ == nullptr) {
        return false;
    }
    for (int i = 0; i < line.Length(); ++i) {
        if (line.data[i] != '\0' && std::fputc(line.data[i], stream_) == EOF) {
            return false;
        }
    }
    return true;
}

bool File::readBytes(char* buffer, int size, int count) {
    if (stream_ == nullptr || size <= 0 || count <= 0) {
        return false;
    }
    const auto wanted = static_cast<std::size_t>(count);
    return std::fread(buffer, static_cast<std::size_t>(size), wanted, stream_) == wanted;
}

bool File::writeBytes(char* buffer, int size, int count) {
    if (stream_ == nullptr || size < 0 || count < 0) {
        return false;
    }
    const auto wanted = static_cast<std::size_t>(count);
    return std::fwrite(buffer, static_cast<std::size_t>(size), wanted, stream_) >= wanted;
}

bool File::setPosition(long offset, long origin) {
    const bool moved =
        stream_ != nullptr && std::fseek(stream_, offset, static_cast<int>(origin)) == 0;
    failed_ = failed_ && !moved;
    return moved;
}

long File::getPosition() {
    return stream_ == nullptr ? -1 : std::ftell(stream_);
}

}  // namespace vel
