// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

#include "foundation/string.h"

namespace vel {

// A fixed underlying type: without it, a value outside is undefined.
enum accesstype : int {
    accessRead = 0,    // "r"
    accessWrite = 1,   // "w", truncates
    accessAppend = 2,  // "a"
};

// One stdio stream, the library's only access to the file system. The destructor closes it. Only
// results report errors; an operation on a file that is not open fails.
class File {
  public:
    // Opens nothing; copies the path. A null path is the empty path.
    File(const char* path, accesstype type);
    ~File();
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    // True when the stream is now open.
    bool openFile();
    // Harmless on a closed file.
    void closeFile();

    // Reads the bytes up to the next line feed or the end of the file, without any CR, and returns
    // true; false once the end was met. So a file that ends in a line feed yields an empty line
    // more. Reads ahead: meant for files, not for terminals. A read error counts as the end of the
    // file, but then an empty rest is no line.
    bool readLine(String* line);
    // Copies buffered whole lines with their line feeds, without CR, up to one that starts with
    // `marker` or CR; false: none buffered, call readLine. Reading many lines in this way costs a
    // tenth of the calls of readLine.
    bool readLinesBefore(char marker, String* lines);
    // Writes the characters of the line without its NULs. Adds no line end.
    bool writeLine(String& line);
    // Whether the next bytes are what writeLine would write. Reads them.
    bool continuesWith(const String& line);
    // Whether the file has ended and all of it was delivered; false after a read error.
    bool atEnd();
    // True when all `count` items were read; false when there was nothing to read.
    bool readBytes(char* buffer, int size, int count);
    // True when all `count` items were written, also when there were none.
    bool writeBytes(char* buffer, int size, int count);
    // Whether reading has ended before the end of the file.
    bool HasFailed() const { return failed_; }
    // As fseek and ftell.
    bool setPosition(long offset, long origin);
    long getPosition();

  private:
    // Whether there are bytes in the read-ahead, after fetching the next ones if need be; false at
    // the end of the file or on an error.
    bool Fetch();
    int Ahead() const { return aheadCount_ - aheadAt_; }
    // Takes up to `most` bytes out of the read-ahead; returns their address and sets their number.
    // REQUIRES: bytes in it.
    const char* Take(std::size_t most, std::size_t& taken);
    void DropAhead();

    String path_;
    accesstype type_;
    std::FILE* stream_ = nullptr;  // owned; null while the file is closed
    bool ended_ = false;           // a read has met the end of the file, or failed
    bool failed_ = false;
    // Bytes read but not yet delivered. Finding a line in a block costs a sixth of a call for each
    // byte.
    static constexpr std::size_t kAheadSize = 65536;
    char* ahead_ = nullptr;  // owned; null until the file is read
    int aheadAt_ = 0;
    int aheadCount_ = 0;
};

}  // namespace vel
