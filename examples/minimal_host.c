/* SPDX-License-Identifier: MIT
 * A host without a phone: lists what a catalogue holds. minimal_host CATALOGUE [COUNTRY] */
#include <stdio.h>
#include <stdlib.h>
#include <velmor.h>

/* A text can fill its buffer without a terminator, so every print is bounded. */
static char text[64];
static Velmor_DUNSetting setting;

static long no_phone_read(char* buffer, long count, long timeout) {
    (void)buffer, (void)count, (void)timeout;
    return 0; /* nothing came */
}

static long no_phone_send(const char* buffer, long length) {
    (void)buffer, (void)length;
    return -1; /* nothing went out */
}

int main(int argc, char** argv) {
    const long chosen = argc > 2 ? atol(argv[2]) : 0;
    long i, id;
    if (argc < 2 || Velmor_Initialise(argv[1], no_phone_read, no_phone_send) != 0) {
        fprintf(stderr, "no usable catalogue\n");
        return 1;
    }
    printf("library %ld, catalogue %ld\n", Velmor_GetVersionLibrary(),
           Velmor_GetVersionDatabase(0));

    for (i = 0; i < Velmor_GetNrCountries(0); ++i) {
        if (Velmor_GetCountryByIndex(0, i, text, sizeof text) == 0) {
            printf("country %ld: %.64s\n", i, text);
        }
    }
    for (i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        if (Velmor_GetPhoneByIndex(0, i, &id, text, sizeof text) == 0) {
            printf("phone %ld: %.64s\n", id, text);
        }
    }
    for (i = 0; i < Velmor_GetCountryNrOfBasicDUNSettings(0, chosen); ++i) {
        if (Velmor_GetCountryBasicDUNSettingByIndex(0, chosen, i, &setting) == 0) {
            printf("setting %ld: %.256s, access point %.256s, user %.256s\n",
                   (long)setting.aBasicDUNSettingId, setting.DisplayName, setting.APN,
                   setting.DefaultUser);
        }
    }
    Velmor_DeInitialise();
    return 0;
}
