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
#include <velmor_line.h>

static int device;
static VelmorLine_Filter filter; /* between the phone and the library */
static time_t give_up;           /* the end of reading, because a phone may never stop sending */

/* Reads a byte. Takes the AT-TIME-OUT of the catalogue as milliseconds. */
static long receive(char* byte, long timeout) {
    struct pollfd waiting = {device, POLLIN, 0};
    if (time(NULL) >= give_up || poll(&waiting, 1, timeout < 0 ? 1000 : (int)timeout) != 1) {
        return 0;
    }
    return read(device, byte, 1);
}

/* The library reads what the filter gives. */
static long read_byte(char* buffer, long count, long timeout) {
    while (VelmorLine_Give(&filter, buffer, count) == 0) {
        char byte;
        if (receive(&byte, timeout) == 1) {
            VelmorLine_Take(&filter, &byte, 1);
        } else if (VelmorLine_Silent(&filter) == 0) {
            return 0;
        }
    }
    return 1;
}

static long send_command(const char* buffer, long length) {
    VelmorLine_Command(&filter, buffer, length);
    give_up = time(NULL) + 10;
    return write(device, buffer, (size_t)length);
}

/* Sends a command of the host's own, and takes the answer until the phone is silent: a late answer
 * must not be taken for the next one. */
static char answer[1024];
static long ask(const char* command) {
    char line[64], byte;
    long length = 0;
    send_command(line, snprintf(line, sizeof line, "%s\r", command));
    while (receive(&byte, length == 0 ? 2000 : 300) == 1) {
        if (length < (long)sizeof answer) {
            answer[length++] = byte;
        }
    }
    return length;
}

/* Makes the phone quiet, and waits until it has read its card. */
static void prepare(VelmorLine_Preparation* preparation) {
    const char* command;
    long length = 0, wait, waited = 0;
    VelmorLine_Start(&filter);
    ask("AT"); /* the first answer of some phones is late or noisy */
    VelmorLine_StartPreparation(preparation, 0);
    while ((command = VelmorLine_Prepare(preparation, answer, length)) != NULL) {
        length = ask(command);
    }
    ask("AT+CMEE=1"); /* errors with numbers: busy is one of them */
    for (length = ask("AT+CPIN?"); (wait = VelmorLine_WaitForCard(answer, length, waited)) > 0;
         length = ask("AT+CPIN?")) {
        poll(NULL, 0, (int)wait);
        waited += wait;
    }
    ask("AT+CMEE=0");
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
    VelmorLine_Preparation preparation;
    const char* command;
    if (argc != 3 || open_device(argv[2]) != 0) {
        fprintf(stderr, "usage: detect_host CATALOGUE DEVICE\n");
        return 2;
    }
    if (Velmor_Initialise(argv[1], read_byte, send_command) != 0) {
        fprintf(stderr, "no usable catalogue\n");
        return 2;
    }
    prepare(&preparation);
    const long result = Velmor_DetectPhoneAndNetwork(0, maker, sizeof maker, model, sizeof model);
    printf("the phone says: %.64s, %.64s\n", maker, model);
    if (Velmor_GetDetectedPhone(0, model, sizeof model, maker, sizeof maker) >= 0) {
        printf("this is: %.64s %.64s\n", maker, model);
    }
    print_settings();
    while ((command = VelmorLine_Restore(&preparation)) != NULL) {
        ask(command);
    }
    Velmor_DeInitialise();
    return result == 0 ? 0 : 1;
}
