// SPDX-License-Identifier: MIT
//
// Decides when the stored form of a file is written. The library does this at every start, mostly
// with the same bytes: a copy that holds them already is left alone. That spares the flash of a
// device, and comparing costs less than writing. The output can be the input itself, so it is
// opened for writing only after the input was read to its end.
#include "foundation/list.h"
#include "storage/crypt.h"
#include "storage/file.h"

namespace vel {
namespace {

constexpr int kBlockSize = 65536;

using Blocks = List<String>;

// Reads one or more lines of a source and makes them stored ones, with line feeds.
bool ReadStored(ArrayCrypter& crypter, File& source, String& lines) {
    if (source.readLinesBefore('E', &lines)) {
        return true;
    }
    if (!source.readLine(&lines)) {
        return false;
    }
    if (lines.First() == 'E') {
        lines = crypter.Encrypt(lines);
    }
    lines.Append('\n');
    return true;
}

// Whether the file `name` holds the stored form of a source, and nothing else.
bool IsStored(ArrayCrypter& crypter, File& source, const String& name) {
    File copy(name.c_str(), accessRead);
    if (!copy.openFile()) {
        return false;
    }
    String lines;
    while (ReadStored(crypter, source, lines)) {
        if (!copy.continuesWith(lines)) {
            return false;
        }
    }
    return !source.HasFailed() && copy.atEnd();
}

// Reads the stored form of a source. Blocks hold whole lines: a node for every line would cost
// three times more.
void ReadAll(ArrayCrypter& crypter, File& source, Blocks& blocks) {
    blocks.allowDuplicates = true;
    String lines;
    while (ReadStored(crypter, source, lines)) {
        if (blocks.tail == nullptr || lines.Length() > kBlockSize - blocks.tail->element.count) {
            blocks.Add("");
            blocks.tail->element.internalEnsureSpace(kBlockSize - 1);
        }
        blocks.tail->element.Append(lines.data, lines.Length());
    }
}

}  // namespace

bool ArrayCrypter::CryptFile(const String& path, const String& target) {
    const String name = target.IsEmpty() ? path + ".encode" : path;
    Reset();
    File input(path.c_str(), accessRead);
    if (!input.openFile()) {
        return true;
    }
    // Comparing reads the input, so it must be able to start again: a FIFO cannot.
    if (input.setPosition(0, SEEK_SET)) {
        const bool isStored = IsStored(*this, input, name);
        Reset();
        if (isStored) {
            return false;
        }
        if (!input.setPosition(0, SEEK_SET)) {
            return true;
        }
    }
    Blocks blocks;
    ReadAll(*this, input, blocks);
    Reset();
    if (input.HasFailed()) {
        return true;  // opening the output could lose what was not read: it may be the input
    }
    input.closeFile();
    File output(name.c_str(), accessWrite);
    if (!output.openFile()) {
        return true;
    }
    for (auto* node = blocks.head; node != nullptr; node = node->next) {
        output.writeLine(node->element);
    }
    return false;
}

}  // namespace vel
