// SPDX-License-Identifier: MIT
#include "storage/file.h"

#include <cstring>

namespace vel {
namespace {

void AppendWithoutReturns(String& line, const char* bytes, int length) {
    const char* const end = bytes + length;
    while (bytes != end) {
        const auto left = static_cast<std::size_t>(end - bytes);
        const auto* found = static_cast<const char*>(std::memchr(bytes, '\r', left));
        const char* stop = found == nullptr ? end : found;
        line.Append(bytes, static_cast<int>(stop - bytes));
        bytes = found == nullptr ? end : found + 1;
    }
}

}  // namespace

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
    delete[] std::exchange(ahead_, nullptr);
    DropAhead();
}

void File::DropAhead() {
    aheadAt_ = aheadCount_ = 0;
    ended_ = failed_ = false;
}

bool File::Fetch() {
    if (Ahead() > 0) {
        return true;
    }
    if (stream_ == nullptr || ended_) {
        return false;
    }
    if (ahead_ == nullptr) {
        ahead_ = new char[kAheadSize];
    }
    aheadAt_ = 0;
    aheadCount_ = static_cast<int>(std::fread(ahead_, 1, kAheadSize, stream_));
    ended_ = aheadCount_ == 0;
    failed_ = ended_ && std::feof(stream_) == 0;
    return !ended_;
}

const char* File::Take(std::size_t most, std::size_t& taken) {
    const char* const bytes = ahead_ + aheadAt_;
    const auto ahead = static_cast<std::size_t>(Ahead());
    taken = most < ahead ? most : ahead;
    aheadAt_ += static_cast<int>(taken);
    return bytes;
}

bool File::readLine(String* line) {
    line->Truncate();
    bool read = stream_ != nullptr && !ended_;
    const char* lineFeed = nullptr;
    while (read && lineFeed == nullptr && Fetch()) {
        const char* start = ahead_ + aheadAt_;
        const auto size = static_cast<std::size_t>(Ahead());
        lineFeed = static_cast<const char*>(std::memchr(start, '\n', size));
        const auto length = lineFeed == nullptr ? Ahead() : static_cast<int>(lineFeed - start);
        AppendWithoutReturns(*line, start, length);
        aheadAt_ += length + (lineFeed == nullptr ? 0 : 1);
    }
    if (line->IsEmpty()) {
        line->Clear();
        read = read && !failed_;
    }
    return read;
}

bool File::readLinesBefore(char marker, String* lines) {
    const char* const start = ahead_ + aheadAt_;
    const char* const end = start + Ahead();
    const char* line = start;
    while (line != end && *line != marker && *line != '\r') {  // the marker may follow
        const auto* lineFeed =
            static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        if (lineFeed == nullptr) {
            break;
        }
        line = lineFeed + 1;
    }
    lines->Truncate();
    AppendWithoutReturns(*lines, start, static_cast<int>(line - start));
    aheadAt_ += static_cast<int>(line - start);
    return line != start;
}

bool File::writeLine(String& line) {
    if (stream_ == nullptr) {
        return false;
    }
    for (int i = 0; i < line.Length(); ++i) {
        const std::size_t run = strnlen(line.data + i, static_cast<std::size_t>(line.Length() - i));
        if (run > 0 && std::fwrite(line.data + i, 1, run, stream_) != run) {
            return false;
        }
        i += static_cast<int>(run);
    }
    return true;
}

bool File::continuesWith(const String& line) {
    const char* expected = line.c_str();
    const char* const end = expected + line.Length();
    while (expected < end) {
        std::size_t left = strnlen(expected, static_cast<std::size_t>(end - expected));
        while (left > 0 && Fetch()) {
            std::size_t taken = 0;
            const char* const bytes = Take(left, taken);
            if (std::memcmp(bytes, expected, taken) != 0) {
                return false;
            }
            expected += taken;
            left -= taken;
        }
        if (left > 0) {
            return false;
        }
        ++expected;  // a NUL, or the terminator
    }
    return true;
}

bool File::atEnd() {
    return !Fetch() && !failed_;
}

bool File::readBytes(char* buffer, int size, int count) {
    if (stream_ == nullptr || size <= 0 || count <= 0) {
        return false;
    }
    std::size_t wanted = static_cast<std::size_t>(size) * static_cast<std::size_t>(count);
    while (wanted > 0 && Fetch()) {
        std::size_t taken = 0;
        const char* const bytes = Take(wanted, taken);
        std::memcpy(buffer, bytes, taken);
        buffer += taken;
        wanted -= taken;
    }
    return wanted == 0;
}

bool File::writeBytes(char* buffer, int size, int count) {
    if (stream_ == nullptr || size < 0 || count < 0) {
        return false;
    }
    const auto wanted = static_cast<std::size_t>(count);
    return std::fwrite(buffer, static_cast<std::size_t>(size), wanted, stream_) >= wanted;
}

bool File::setPosition(long offset, long origin) {
    const long behind = origin == SEEK_CUR ? Ahead() : 0;
    if (stream_ == nullptr || std::fseek(stream_, offset - behind, static_cast<int>(origin)) != 0) {
        return false;
    }
    DropAhead();
    return true;
}

long File::getPosition() {
    const long position = stream_ == nullptr ? -1 : std::ftell(stream_);
    return position < 0 ? -1 : position - Ahead();
}

}  // namespace vel
