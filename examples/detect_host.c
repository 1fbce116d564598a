/* SPDX-License-Identifier: MIT
 * A host with a phone on a serial device: detects it and prints the settings that fit.
 * detect_host CATALOGUE DEVICE */
#define _DEFAULT_SOURCE
#include <fcntl.h>
#include <poll.h>
#include <stdio.h>
#include <string.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>
#include <velmor.h>

static int device;
static time_t give_up; /* the end of reading, because a phone may never stop sending */

/* Reads a byte. Takes the AT-TIME-OUT of the catalogue as milliseconds. */
static long read_byte(char* buffer, long count, long timeout) {
    struct pollfd waiting = {device, POLLIN, 0};
    if (time(NULL) >= give_up || poll(&waiting, 1, timeout < 0 ? 1000 : (int)timeout) != 1) {
        return 0;
    }
    return read(device, buffer, (size_t)count);
}

static long send_command(const char* buffer, long length) {
    give_up = time(NULL) + 10;
    return write(device, buffer, (size_t)length);
}

/* Sends a command of the host's own and reads until the phone is silent: a late answer must not be
 * taken for the next one. */
static void prepare(const char* command) {
    char byte;
    send_command(command, (long)strlen(command));
    while (read_byte(&byte, 1, 300) == 1) {
    }
}

static int open_device(const char* path) {
    struct termios line;
    device = open(path, O_RDWR | O_NOCTTY);
    if (device < 0 || tcgetattr(device, &line) != 0) {
        return -1;
    }
    cfmakeraw(&line);
    return tcsetattr(device, TCSANOW, &line);
}

/* The ID of the fallback phone: an unknown phone is dialled with its rows. -1 without one. */
static long generic_phone(void) {
    char name[64];
    long i, id;
    for (i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        if (Velmor_GetPhoneByIndex(0, i, &id, name, sizeof name) == 0 &&
            strncmp(name, "Generic: any phone", sizeof name) == 0) {
            return id;
        }
    }
    return -1;
}

static void print_settings(void) {
    Velmor_DUNSetting setting;
    long i, count = 0;
    Velmor_GetNrDetectedDUNSettings(0, &count);
    for (i = 0; i < count; ++i) {
        long result = Velmor_GetDetectedDUNSettingByIndex(0, i, &setting);
        if (result != 0 && setting.aBasicDUNSettingId >= 0) {
            result = Velmor_GetDUNSetting(0, generic_phone(), setting.aBasicDUNSettingId, &setting);
        }
        printf("%.256s (%.256s): %s\n  %.256s\n  %.256s\n  user %.256s, password %.256s\n",
               setting.DisplayName, setting.Country,
               result == 0 ? "ready to dial" : "not known for this phone",
               setting.InitializationString, setting.DialString, setting.DefaultUser,
               setting.DefaultPassword);
    }
}

int main(int argc, char** argv) {
    char maker[64], model[64];
    if (argc != 3 || open_device(argv[2]) != 0) {
        fprintf(stderr, "usage: detect_host CATALOGUE DEVICE\n");
        return 2;
    }
    if (Velmor_Initialise(argv[1], read_byte, send_command) != 0) {
        fprintf(stderr, "no usable catalogue\n");
        return 2;
    }
    prepare("AT\r");        /* the first answer of some phones is late or noisy */
    prepare("ATE1\r");      /* the library reads answers with an echo best */
    prepare("AT+CMEE=0\r"); /* +CME ERROR: 11 does not end an answer, ERROR does */
    const long result = Velmor_DetectPhoneAndNetwork(0, maker, sizeof maker, model, sizeof model);
    printf("the phone says: %.64s, %.64s\n", maker, model);
    if (Velmor_GetDetectedPhone(0, model, sizeof model, maker, sizeof maker) >= 0) {
        printf("this is: %.64s %.64s\n", maker, model);
    }
    print_settings();
    Velmor_DeInitialise();
    return result == 0 ? 0 : 1;
}
