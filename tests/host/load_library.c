/* SPDX-License-Identifier: MIT
 * Loads the shared library as a host does, from C, and asks for its version. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "velmor.h"

int main(int argc, char** argv) {
    long (*version)(void);
    void* library = argc > 1 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : NULL;
    void* symbol = library != NULL ? dlsym(library, "Velmor_GetVersionLibrary") : NULL;
    if (symbol == NULL) {
        fprintf(stderr, "%s\n", argc > 1 ? dlerror() : "which library?");
        return 1;
    }
    memcpy(&version, &symbol, sizeof version);
    printf("version %ld\n", version());
    return version() == 150 && dlclose(library) == 0 ? 0 : 1;
}
