/* SPDX-License-Identifier: MIT
 * A session whose work is to be counted (scripts/growth): growth CATALOGUE BYTES
 * The phone says so many bytes of other lines before it names a subscriber whose network has the
 * setting that is fetched. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <velmor.h>

static long noise; /* bytes to say before each answer */
static long said;
static const char* answer = "";

static long send_command(const char* command, long length) {
    said = 0;
    answer = strncmp(command, "AT+CGM", 6) == 0 ? "ACME X100\r\nOK\r\n" : "998011234\r\nOK\r\n";
    return length;
}

static long read_byte(char* buffer, long count, long timeout) {
    (void)timeout;
    if (said < noise) {
        *buffer = ++said % 64 == 0 || said == noise ? '\n' : 'x';
        return count;
    }
    *buffer = *answer;
    return *answer == '\0' ? 0 : (++answer, count);
}

int main(int argc, char** argv) {
    Velmor_DUNSetting setting;
    noise = argc == 3 ? atol(argv[2]) : 0;
    if (argc != 3 || Velmor_Initialise(argv[1], read_byte, send_command) != 0 ||
        Velmor_DetectPhoneAndNetwork(0, NULL, 0, NULL, 0) != 0 ||
        Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting) != 0) {
        fprintf(stderr, "no setting\n");
        return 1;
    }
    Velmor_DeInitialise();
    return 0;
}
