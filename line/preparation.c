/* SPDX-License-Identifier: MIT
 * The state of a phone that libvelmor reads best, and the wait for a busy SIM card. */
#include <string.h>

#include "velmor_line.h"
#include "words.h"

typedef char sizeIsKept[sizeof(VelmorLine_Preparation) == VELMOR_LINE_PREPARATION_SIZE ? 1 : -1];

/* A value that the phone tells when it is asked with "?", and sets with "=". `disturbs`: the values
 * that disturb, separated by semicolons; NULL: the command goes out as it is. */
static const struct {
    const char* command;
    const char* disturbs;
    const char* wanted;
    long options; /* with which it is done */
} kSteps[] = {
    {"ATV1", NULL, NULL, 0},                    /* first: a number is hard to tell from an answer */
    {"ATE1", NULL, NULL, 0},                    /* without echo the library reads no line of ATI */
    {"AT+CFUN", "0;4", "1", VELMOR_LINE_RADIO}, /* before the rest, which may depend on it */
    {"AT+CMEE", "1;2", "0", 0}, /* the library knows no numbers or texts of errors */
    {"AT+CREG", "1;2;3", "0", 0},
    {"AT+CGREG", "1;2;3", "0", 0},
    {"AT+CEREG", "1;2;3;4;5", "0", 0},
    {"AT^CURC", "1", "0", 0},
    {"AT+CSCS", "\"UCS2\"", "\"GSM\"", 0}, /* the name of the operator */
};
enum { kStepCount = sizeof kSteps / sizeof *kSteps };
typedef char stepsFit[kStepCount <= 16 ? 1 : -1];

/* The milliseconds between two questions about the card, and of all waits. */
enum { kEach = 1000, kLongest = 20000 };

/* The start of the last line of an answer with this beginning, behind the beginning and a colon
 * with blanks; NULL: there is none. Sets `end` to the end of the answer. */
static const char* LastLine(const char* answer, long length, const char* beginning,
                            const char** end) {
    const size_t size = strlen(beginning);
    const char* found = NULL;
    long i;
    if (answer == NULL || length < 0) {
        return NULL;
    }
    *end = answer + length;
    for (i = 0; i + (long)size < length; ++i) {
        const int isStart = i == 0 || answer[i - 1] == '\n' || answer[i - 1] == '\r';
        if (isStart && answer[i + (long)size] == ':' && memcmp(answer + i, beginning, size) == 0) {
            found = answer + i + size + 1;
        }
    }
    while (found != NULL && found < *end && *found == ' ') {
        ++found;
    }
    return found;
}

static size_t LengthUpTo(const char* text, const char* end, const char* ends) {
    const char* at = text;
    while (at < end && *at != '\0' && strchr(ends, *at) == NULL) {
        ++at;
    }
    return (size_t)(at - text);
}

/* Asks for the value, or sets the first one of a list. */
static const char* Command(VelmorLine_Preparation* preparation, const char* what,
                           const char* values) {
    strcpy(preparation->command, what);
    strcat(preparation->command, values == NULL ? "?" : "=");
    if (values != NULL) {
        strncat(preparation->command, values, strcspn(values, ";"));
    }
    return preparation->command;
}

void VelmorLine_StartPreparation(VelmorLine_Preparation* preparation, long options) {
    memset(preparation, 0, sizeof *preparation);
    preparation->options = (unsigned char)options;
}

const char* VelmorLine_Prepare(VelmorLine_Preparation* preparation, const char* answer,
                               long length) {
    while (preparation->step < kStepCount) {
        const int step = preparation->step;
        if (preparation->isAsked) {
            const char* end = answer;
            const char* const value = LastLine(answer, length, kSteps[step].command + 2, &end);
            preparation->isAsked = 0;
            ++preparation->step;
            if (value != NULL) {
                preparation->before[step] = (unsigned char)Find(kSteps[step].disturbs, value,
                                                                LengthUpTo(value, end, ", \r\n"));
            }
            if (preparation->before[step] != 0) {
                return Command(preparation, kSteps[step].command, kSteps[step].wanted);
            }
        } else if ((kSteps[step].options & ~(long)preparation->options) != 0) {
            ++preparation->step;
        } else if (kSteps[step].disturbs == NULL) {
            ++preparation->step;
            return kSteps[step].command;
        } else {
            preparation->isAsked = 1;
            return Command(preparation, kSteps[step].command, NULL);
        }
    }
    return NULL;
}

const char* VelmorLine_Restore(VelmorLine_Preparation* preparation) {
    int step;
    preparation->step = kStepCount;
    for (step = kStepCount - 1; step >= 0; --step) {
        const unsigned char before = preparation->before[step];
        if (before != 0) {
            preparation->before[step] = 0;
            return Command(preparation, kSteps[step].command, kSteps[step].disturbs + before - 1);
        }
    }
    return NULL;
}

long VelmorLine_WaitForCard(const char* answer, long length, long waited) {
    /* 3GPP TS 27.007, 9.2.1, and TS 27.005, 3.2.5 */
    static const char* const busy[][2] = {
        {"+CME ERROR", "14"}, {"+CME ERROR", "SIM busy"}, {"+CMS ERROR", "314"}};
    size_t i, k;
    for (i = 0; i < sizeof busy / sizeof *busy; ++i) {
        const char* end = answer;
        const char* const text = LastLine(answer, length, busy[i][0], &end);
        const size_t size = text == NULL ? 0 : LengthUpTo(text, end, "\r\n");
        const char* const words = busy[i][1];
        for (k = 0; k < size && words[k] != '\0' && (text[k] | ' ') == (words[k] | ' '); ++k) {
        }
        if (size > 0 && k == size && words[k] == '\0') {
            return waited < kLongest ? kEach : 0;
        }
    }
    return 0;
}
