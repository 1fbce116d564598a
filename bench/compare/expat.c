/* SPDX-License-Identifier: MIT
 * Reads the operators' XML up to the first internet access point of a network: expat XML MCCMNC */
#include <expat.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static const char* network;
static int matches;  /* whether the operator has the network */
static int internet; /* whether the access point is for the internet */
static int found;
static char apn[256];

static const char* attribute(const char** attributes, const char* name) {
    for (; *attributes != NULL; attributes += 2) {
        if (strcmp(*attributes, name) == 0) {
            return attributes[1];
        }
    }
    return "";
}

static void begin(void* data, const char* element, const char** attributes) {
    (void)data;
    if (strcmp(element, "provider") == 0) {
        matches = 0;
    } else if (strcmp(element, "network-id") == 0) {
        const char* mcc = attribute(attributes, "mcc");
        const size_t length = strlen(mcc);
        matches |= strncmp(network, mcc, length) == 0 &&
                   strcmp(network + length, attribute(attributes, "mnc")) == 0;
    } else if (!found && strcmp(element, "apn") == 0) {
        internet = 0;
        snprintf(apn, sizeof apn, "%s", attribute(attributes, "value"));
    } else if (strcmp(element, "usage") == 0) {
        internet = strcmp(attribute(attributes, "type"), "internet") == 0;
    }
}

static void end(void* data, const char* element) {
    (void)data;
    if (!found && matches && internet && strcmp(element, "apn") == 0) {
        found = 1;
        printf("%s\n", apn);
    }
}

int main(int argc, char** argv) {
    XML_Parser parser = XML_ParserCreate(NULL);
    FILE* file = argc == 3 ? fopen(argv[1], "rb") : NULL;
    size_t size = 1;
    if (file == NULL || parser == NULL) {
        return 2;
    }
    network = argv[2];
    XML_SetElementHandler(parser, begin, end);
    while (size > 0 && !found) {
        enum { BLOCK = 65536 };
        void* block = XML_GetBuffer(parser, BLOCK);
        size = fread(block, 1, BLOCK, file);
        if (XML_ParseBuffer(parser, (int)size, size == 0) == XML_STATUS_ERROR) {
            fprintf(stderr, "%s\n", XML_ErrorString(XML_GetErrorCode(parser)));
            return 1;
        }
    }
    XML_ParserFree(parser);
    fclose(file);
    return found ? 0 : 1;
}
