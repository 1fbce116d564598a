/* SPDX-License-Identifier: MIT
 * Lets the library detect a phone that is simulated in memory: velmor_host CATALOGUE MCCMNC */
#include <stdio.h>
#include <string.h>
#include <velmor.h>

static const char* network;
static char answer[256];
static size_t at;

static long read_byte(char* buffer, long count, long timeout) {
    (void)timeout;
    if (count < 1 || answer[at] == '\0') {
        return 0;
    }
    *buffer = answer[at++];
    return 1;
}

static long send_command(const char* buffer, long length) {
    const char* data = "";
    if (strncmp(buffer, "AT+CGMI\r", 8) == 0) {
        data = "Cinterion";
    } else if (strncmp(buffer, "AT+CGMM\r", 8) == 0) {
        data = "MC55i";
    } else if (strncmp(buffer, "AT+CIMI\r", 8) == 0) {
        data = network;
    }
    at = 0;
    snprintf(answer, sizeof answer, "%.*s\r\n%s\r\n\r\nOK\r\n", (int)length, buffer, data);
    return length;
}

int main(int argc, char** argv) {
    Velmor_DUNSetting setting;
    int found;
    if (argc != 3) {
        return 2;
    }
    network = argv[2];
    found = Velmor_Initialise(argv[1], read_byte, send_command) == 0 &&
            Velmor_DetectPhoneAndNetwork(0, NULL, 0, NULL, 0) == 0 &&
            Velmor_GetDetectedDUNSettingByIndex(0, 0, &setting) == 0;
    if (found) {
        printf("%.256s\n", setting.APN);
    }
    Velmor_DeInitialise();
    return found ? 0 : 1;
}
