/* SPDX-License-Identifier: MIT */
#ifndef VELMOR_WORDS_H
#define VELMOR_WORDS_H

#include <string.h>

/* Where a word stands in a list with semicolons between the words, plus 1; 0: it does not. */
static unsigned short Find(const char* list, const char* word, size_t length) {
    const char* at = list;
    while (length > 0 && *at != '\0') {
        const size_t size = strcspn(at, ";");
        if (size == length && memcmp(at, word, length) == 0) {
            return (unsigned short)(at - list + 1);
        }
        at += size + (at[size] == ';');
    }
    return 0;
}

#endif
