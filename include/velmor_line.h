/* SPDX-License-Identifier: MIT
 *
 * A clean line for hosts of libvelmor: what a host does between its link to the phone and the
 * library. libvelmor-line does no input or output, allocates nothing, and needs only libc.
 *
 * 1. A filter takes the bytes of the phone and gives the bytes for the library's read callback.
 * 2. A preparation tells which commands make a phone quiet, and which put it back as it was.
 * 3. VelmorLine_WaitForCard tells whether to ask a busy SIM card again.
 *
 * The structures belong to the host, and keep their size in all later versions. A host for which C
 * headers are no use allocates the bytes: VELMOR_LINE_FILTER_SIZE, VELMOR_LINE_PREPARATION_SIZE.
 * The library keeps no other state: different structures may be used in different threads. Pointers
 * to structures must not be null. Other pointers may be null when their count is 0. A negative
 * count is 0. */
#ifndef VELMOR_LINE_H
#define VELMOR_LINE_H

#if defined(__GNUC__)
#define VELMOR_LINE_EXPORT __attribute__((visibility("default")))
#else
#define VELMOR_LINE_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define VELMOR_LINE_FILTER_SIZE 1024
#define VELMOR_LINE_PREPARATION_SIZE 128

/* Takes the answers of a phone to AT commands, and gives what libvelmor reads best:
 *
 * - An unsolicited line, such as ^RSSI: 18 or RING, is left out with the line end before it, unless
 *   the running command asks for it: AT+CREG? gets its +CREG: line. See line/filter.c for the list.
 * - A repeated echo of the command is left out, and line ends before the echo.
 * - ERROR follows an error that the library does not know, such as +CME ERROR: 11.
 * - A result code that ends in anything but CR LF gets CR LF. A CR alone between two lines becomes
 *   CR LF, and CR CR in front of a line CR.
 * - A result code as a number (ATV0), alone in its line, becomes OK or ERROR.
 *
 * All else passes unchanged, and nothing depends on how the bytes are divided between calls.
 * The members are private. */
typedef struct {
    unsigned short given, ready, length, lead, commandLength;
    unsigned char state, kind, echoed, dataFollows, skipsLineFeed;
    char command[129];
    char bytes[512];
    char reserved[368];
} VelmorLine_Filter;

/* Starts a filter. */
VELMOR_LINE_EXPORT void VelmorLine_Start(VelmorLine_Filter* filter);

/* Call it when a command goes to the phone, with all its bytes. Forgets what is left of the answer
 * before. */
VELMOR_LINE_EXPORT void VelmorLine_Command(VelmorLine_Filter* filter, const char* bytes,
                                           long count);

/* Takes bytes that came from the phone. Returns how many it took: fewer than `count` when there is
 * no room before VelmorLine_Give is called. When VelmorLine_Give has given all bytes, there is room
 * for 100 at least. */
VELMOR_LINE_EXPORT long VelmorLine_Take(VelmorLine_Filter* filter, const char* bytes, long count);

/* Gives bytes for the library. Returns how many: at most `size`, and 0 when more must come first.
 */
VELMOR_LINE_EXPORT long VelmorLine_Give(VelmorLine_Filter* filter, char* buffer, long size);

/* Call it when the phone has sent nothing for a while, for example when a read timed out. A line
 * that has begun then passes, and a result code that waited for its line feed gets it. Returns how
 * many bytes VelmorLine_Give can give now. */
VELMOR_LINE_EXPORT long VelmorLine_Silent(VelmorLine_Filter* filter);

/* Prepares a phone, a command at a time. The members are private. */
typedef struct {
    unsigned char step, isAsked, options;
    unsigned char before[16];
    char command[45];
    char reserved[64];
} VelmorLine_Preparation;

/* An option: switch the radio on, which a call needs and a detection does not. */
#define VELMOR_LINE_RADIO 1

/* Starts a preparation. `options`: 0 or VELMOR_LINE_RADIO. */
VELMOR_LINE_EXPORT void VelmorLine_StartPreparation(VelmorLine_Preparation* preparation,
                                                    long options);

/* Tells the next command, without its carriage return: words as result codes and echo (ATV1, ATE1),
 * then what the phone tells of its state, and what differs from plain errors (AT+CMEE=0), no
 * unsolicited lines (AT+CREG=0, AT+CGREG=0, AT+CEREG=0, AT^CURC=0) and readable names (AT+CSCS).
 *
 * answer, length  all that came after the command before; the first call passes 0 bytes
 *
 * Returns NULL at the end. The text is valid until the next call. */
VELMOR_LINE_EXPORT const char* VelmorLine_Prepare(VelmorLine_Preparation* preparation,
                                                  const char* answer, long length);

/* Tells the next command that puts the phone back, without its carriage return; NULL at the end.
 * May be called before the preparation has ended, which ends it. Echo and words stay. */
VELMOR_LINE_EXPORT const char* VelmorLine_Restore(VelmorLine_Preparation* preparation);

/* Whether to ask a SIM card again.
 *
 * answer, length  the answer to AT+CPIN? or AT+CIMI, best with AT+CMEE=1 before: a plain ERROR does
 *                 not tell that the card is busy
 * waited          the milliseconds that were waited for this card before
 *
 * Returns the milliseconds to wait before the question is sent again; 0: do not ask again, as the
 * card is not busy, or was for 20 seconds. */
VELMOR_LINE_EXPORT long VelmorLine_WaitForCard(const char* answer, long length, long waited);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
