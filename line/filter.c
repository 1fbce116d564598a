/* SPDX-License-Identifier: MIT
 * The filter between a phone and libvelmor.
 *
 * The library takes the last line before OK for the answer, and knows only OK and ERROR with CR LF
 * behind them. So an unsolicited line behind an answer takes its place, and a phone with other
 * results keeps the library waiting. The filter holds each line until its end has come, decides
 * what the line is, and passes or drops it.
 *
 * Bytes of the filter: up to `given` they are with the host, up to `ready` they can go there, up to
 * `length` they are held. The first `lead` of the held bytes are line ends in front of the line:
 * they go with an unsolicited line, whose frame they are. */
#include <string.h>

#include "velmor_line.h"
#include "words.h"

typedef char sizeIsKept[sizeof(VelmorLine_Filter) == VELMOR_LINE_FILTER_SIZE ? 1 : -1];

enum { kHolding, kPassing, kDropping, kAfterCr }; /* states; the first at the start of a line */
enum { kText, kEcho, kResult, kError, kNumber, kDropped }; /* kinds of lines */

enum {
    kMostHeld = 256, /* a longer line passes, or is dropped, before its end has come */
    kRoom = 16,      /* for a byte and all that may be added to it */
    kMostLead = 16
};

/* Unsolicited lines: their text up to a colon or the line end. */
static const char kUnsolicited[] =
    /* ITU-T V.250, 6.3.3; 3GPP TS 27.007: 6.11, 7.2, 7.6, 7.12, 7.15, 7.17, 8.10, 8.41, 10.1.19,
     * 10.1.20, 10.1.22, 10.1.47 */
    "RING;+CRING;+CREG;+CLIP;+CCWA;+CUSD;+CSSI;+CSSU;+CIEV;+CKEV;+CTZV;+CTZE;+CTZDST;+CGEV;+CGREG;"
    "+CEREG;+C5GREG;"
    /* 3GPP TS 27.005, 3.4.1 */
    "+CMTI;+CMT;+CBMI;+CBM;+CDSI;+CDS;"
    /* AT manuals of makers of modules: after a start, and when the card or a context changes */
    "RDY;Call Ready;SMS Ready;SMS DONE;PB DONE;NORMAL POWER DOWN;+CPIN;+CFUN;+QIND;+QUSIM;+PACSP0;"
    "+PACSP1;+ZPASR;+ZDONR;+ZUSIMR;+UUPSDD;"
    /* the same of makers of sticks: signal, mode, traffic; also while a command with a mark runs */
    "^BOOT;^RSSI;^HCSQ;^MODE;^SRVST;^SIMST;^STIN;^DSFLOWRPT;^NDISSTAT;*PSUTTZ";
/* A line of data follows these. */
static const char kWithData[] = "+CMT;+CBM;+CDS";
/* The marks of makers' own commands. Only such a command is answered by a line with a mark and a
 * letter. */
static const char kMarks[] = "^*$%_#";

static int IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/* Whether the running command has this name in it, as AT+CREG? has +CREG. */
static int Asks(const VelmorLine_Filter* filter, const char* name, size_t length) {
    size_t start, i;
    for (start = 0; start + length <= filter->commandLength; ++start) {
        const char* const found = filter->command + start;
        for (i = 0; i < length && (found[i] | ' ') == (name[i] | ' '); ++i) {
        }
        if (i == length && (length == 1 || !IsLetter(found[length]))) {
            return 1;
        }
    }
    return 0;
}

static int IsUnsolicited(VelmorLine_Filter* filter, const char* line, size_t length) {
    const char* const colon = memchr(line, ':', length);
    const size_t name = colon == NULL ? length : (size_t)(colon - line);
    if (Find(kUnsolicited, line, name) != 0) {
        const int drops = !Asks(filter, line, name);
        filter->dataFollows = drops && Find(kWithData, line, name) != 0;
        return drops;
    }
    return length > 1 && memchr(kMarks, line[0], sizeof kMarks - 1) != NULL && IsLetter(line[1]) &&
           !Asks(filter, line, 1);
}

/* What the held line is. */
static unsigned char KindOf(VelmorLine_Filter* filter) {
    const char* const line = filter->bytes + filter->ready + filter->lead;
    const size_t length = (size_t)(filter->length - filter->ready - filter->lead);
    if (length == filter->commandLength && memcmp(line, filter->command, length) == 0) {
        return filter->echoed ? kDropped : kEcho;
    }
    if (Find("OK;ERROR", line, length) != 0) {
        return kResult;
    }
    /* 3GPP TS 27.007, 9.2, and TS 27.005, 3.2.5. Some phones say the words in place of ERROR. */
    if ((length >= 10 && Find("+CME ERROR;+CMS ERROR", line, 10) != 0) ||
        Find("COMMAND NOT SUPPORT", line, length) != 0) {
        return kError;
    }
    if (filter->dataFollows) {
        filter->dataFollows = 0;
        return kDropped;
    }
    if (Find("0;4", line, length) != 0) { /* ITU-T V.250, 6.2.6 */
        return kNumber;
    }
    return IsUnsolicited(filter, line, length) ? kDropped : kText;
}

static void Add(VelmorLine_Filter* filter, const char* text) {
    const size_t count = strlen(text);
    memcpy(filter->bytes + filter->length, text, count);
    filter->length = (unsigned short)(filter->length + count);
}

/* All that is held can go to the host. */
static void Pass(VelmorLine_Filter* filter, const char* added) {
    Add(filter, added);
    filter->ready = filter->length;
    filter->lead = 0;
}

static void Drop(VelmorLine_Filter* filter) {
    filter->length = filter->ready;
    filter->lead = 0;
}

/* The line before has ended without a line feed: in a carriage return before this byte, or at a
 * silence. */
static void EndWithoutLineFeed(VelmorLine_Filter* filter, char next) {
    if (filter->kind == kNumber && next != '\r') {
        const char number = filter->bytes[filter->length - 2];
        filter->length = (unsigned short)(filter->length - 2);
        Pass(filter, number == '0' ? "OK\r\n" : "ERROR\r\n");
    } else if (filter->kind == kResult) {
        Pass(filter, "\n");
    } else if (filter->kind == kError) {
        Pass(filter, "\nERROR\r\n");
    } else if (filter->kind != kDropped) {
        Pass(filter, next == '\r' ? "" : "\n");
    }
}

/* The end of the held line: a carriage return, or a line feed without it. */
static void EndLine(VelmorLine_Filter* filter, char end) {
    const unsigned char kind = KindOf(filter);
    filter->kind = kind;
    filter->state = end == '\r' ? kAfterCr : kHolding;
    if (kind == kEcho) { /* what stands before it is no part of the answer */
        memmove(filter->bytes + filter->ready, filter->bytes + filter->ready + filter->lead,
                (size_t)(filter->length - filter->ready - filter->lead));
        filter->length = (unsigned short)(filter->length - filter->lead);
        filter->echoed = 1;
    }
    if (kind == kDropped) {
        Drop(filter);
    } else if (kind == kNumber && end == '\r') {
        Add(filter, "\r");
    } else if (end == '\r') {
        Pass(filter, "\r");
    } else {
        Pass(filter, kind == kResult ? "\r\n" : "\n");
        Pass(filter, kind == kError ? "ERROR\r\n" : "");
    }
}

/* What is held passes or is dropped before its end has come, and its rest likewise. */
static void EndHolding(VelmorLine_Filter* filter) {
    if (filter->length - filter->ready == filter->lead) {
        Pass(filter, "");
    } else if (KindOf(filter) == kDropped) {
        Drop(filter);
        filter->state = kDropping;
    } else {
        Pass(filter, "");
        filter->state = kPassing;
    }
}

static void TakeByte(VelmorLine_Filter* filter, char byte) {
    const int isLineEnd = byte == '\r' || byte == '\n';
    const int isSecond = byte == '\n' && filter->state == kAfterCr; /* of CR LF */
    if (byte == '\n' && filter->skipsLineFeed) {
        filter->skipsLineFeed = 0;
        return;
    }
    filter->skipsLineFeed = 0;
    if (filter->state == kAfterCr) {
        filter->state = kHolding;
        if (!isSecond) {
            EndWithoutLineFeed(filter, byte);
        } else if (filter->kind != kDropped) {
            Pass(filter, filter->kind == kError ? "\nERROR\r\n" : "\n");
        }
    }
    if (isSecond) {
        return;
    }
    if (filter->state == kHolding && isLineEnd && filter->length - filter->ready > filter->lead) {
        EndLine(filter, byte);
        return;
    }
    if (filter->state == kHolding && byte == '\r' && filter->lead > 0 &&
        filter->bytes[filter->length - 1] == '\r') {
        return; /* the library takes CR CR LF for an empty answer */
    }
    if (filter->state != kDropping) {
        filter->bytes[filter->length++] = byte;
    }
    if (filter->state == kHolding) {
        filter->lead = (unsigned short)(filter->lead + isLineEnd);
        if (filter->lead > kMostLead || filter->length - filter->ready > kMostHeld) {
            EndHolding(filter);
        }
        return;
    }
    Pass(filter, "");
    if (isLineEnd) {
        filter->kind = filter->state == kPassing ? kText : kDropped;
        filter->state = byte == '\r' ? kAfterCr : kHolding;
    }
}

void VelmorLine_Start(VelmorLine_Filter* filter) {
    memset(filter, 0, sizeof *filter);
}

void VelmorLine_Command(VelmorLine_Filter* filter, const char* bytes, long count) {
    const unsigned char skipsLineFeed = filter->skipsLineFeed; /* it may come late */
    size_t length = count < 0 ? 0 : (size_t)count;
    VelmorLine_Start(filter);
    filter->skipsLineFeed = skipsLineFeed;
    while (length > 0 && (bytes[length - 1] == '\r' || bytes[length - 1] == '\n')) {
        --length;
    }
    /* The end of a longer command counts for nothing: no phone repeats its echo in one piece. */
    length = length < sizeof filter->command ? length : sizeof filter->command - 1;
    if (length > 0) {
        memcpy(filter->command, bytes, length);
    }
    filter->commandLength = (unsigned short)length;
}

long VelmorLine_Take(VelmorLine_Filter* filter, const char* bytes, long count) {
    long taken;
    for (taken = 0; taken < count; ++taken) {
        if (filter->length + kRoom > (int)sizeof filter->bytes) {
            filter->length = (unsigned short)(filter->length - filter->given);
            filter->ready = (unsigned short)(filter->ready - filter->given);
            memmove(filter->bytes, filter->bytes + filter->given, filter->length);
            filter->given = 0;
        }
        if (filter->length + kRoom > (int)sizeof filter->bytes) {
            break;
        }
        TakeByte(filter, bytes[taken]);
    }
    return taken;
}

long VelmorLine_Give(VelmorLine_Filter* filter, char* buffer, long size) {
    const long ready = filter->ready - filter->given;
    const long given = size < ready ? size : ready;
    if (given <= 0) {
        return 0;
    }
    memcpy(buffer, filter->bytes + filter->given, (size_t)given);
    filter->given = (unsigned short)(filter->given + given);
    return given;
}

long VelmorLine_Silent(VelmorLine_Filter* filter) {
    if (filter->state == kHolding) {
        EndHolding(filter);
    } else if (filter->state == kAfterCr &&
               (filter->kind == kNumber || filter->kind == kResult || filter->kind == kError)) {
        EndWithoutLineFeed(filter, '\0');
        filter->state = kHolding;
        filter->skipsLineFeed = 1;
    }
    return filter->ready - filter->given;
}
