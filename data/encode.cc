// SPDX-License-Identifier: MIT
// Makes a catalogue from its source at build time: encode SOURCE CATALOGUE
// The catalogue gets its name only when it is complete.
#include <cstdio>

#include "storage/crypt.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: encode SOURCE CATALOGUE\n");
        return 2;
    }
    const vel::String source(argv[1]);
    if (vel::ArrayCrypter().CryptFile(source, "") ||
        std::rename((source + ".encode").c_str(), argv[2]) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
