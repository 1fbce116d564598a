/* SPDX-License-Identifier: MIT
 *
 * Velmor: detects the attached mobile phone and its network, and provides the dial-up networking
 * (DUN) settings that bring the device online.
 *
 * Conventions of this interface. The comment of each function lists its results.
 *
 * 1. Integers are `long` in the prototypes and hold 32-bit values on every target. A number in the
 *    catalogue that is larger or smaller becomes the nearest 32-bit value.
 * 2. A function returns 0 for success and -1 for failure unless its comment says otherwise.
 *    Counting functions return the count. No function throws an exception or ends the process.
 *    Running out of memory is a failure like any other; the functions that count countries and
 *    phones then return 0. (A library that shares its C++ runtime needs the preparation that
 *    docs/integration.md describes.) The session stays usable after a failure, but not after a
 *    failure of Velmor_Initialise.
 * 3. Text buffers and DUN settings belong to the host; the library keeps no pointer to them. The
 *    library writes a buffer over its whole size: the text, then zeros. It cuts a text of `size`
 *    bytes or more to `size` bytes WITHOUT a terminator: read at most `size` bytes. It does not
 *    write a buffer whose size is 0 or less.
 * 4. Null pointers are allowed. A null buffer or output pointer is not written, a null path is a
 *    missing file, and a null callback is a callback that fails.
 * 5. A process has one session. The argument `aHandle` of the query functions selects nothing: pass
 *    0. It only appears in the trace log.
 * 6. The library starts no threads and takes no locks. Call it from one thread at a time. Do not
 *    call it from inside its callbacks.
 * 7. A thread may be cancelled (pthread_cancel). A call holds cancellation off until it returns;
 *    only the callbacks run with the cancellation state of the host. A thread that is cancelled in
 *    a callback leaves the session usable. Compile callbacks in C with -fexceptions: without it,
 *    32-bit Arm cannot free what the call had allocated.
 * 8. Calls at the end of the process are allowed, for example in an atexit handler. After the
 *    session is destroyed they answer as without a session, and Velmor_Initialise returns -1.
 * 9. When the variable TRACE of the catalogue begins with y or Y, the library writes every call to
 *    the trace log. The log holds user names, passwords and subscriber numbers in plain text.
 */
#ifndef VELMOR_H
#define VELMOR_H

#include <stdint.h>

#if defined(__GNUC__)
#define VELMOR_EXPORT __attribute__((visibility("default")))
#else
#define VELMOR_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* A DUN setting: all that the host needs to go online through one access point. It has 3588 bytes
 * and no padding. A text of 256 bytes or more has no terminator. */
#define VELMOR_TEXT_SIZE 256
typedef struct {
    char InitializationString[VELMOR_TEXT_SIZE]; /* modem initialisation: AT+CGDCONT, see 3GPP
                                                    TS 27.007 */
    char DialString[VELMOR_TEXT_SIZE];           /* what the modem dials, for instance ATD*99# */
    char Dns1[VELMOR_TEXT_SIZE]; /* addresses are texts; an empty one is assigned on connection */
    char Dns2[VELMOR_TEXT_SIZE];
    char GatewayIP[VELMOR_TEXT_SIZE];
    char APN[VELMOR_TEXT_SIZE]; /* access point name, see 3GPP TS 23.003 */
    char DisplayName[VELMOR_TEXT_SIZE];
    char ClientIP[VELMOR_TEXT_SIZE];
    char ContractType[VELMOR_TEXT_SIZE]; /* ContractType, RequiresUser and Default hold the
                                            catalogue's texts unchanged */
    char RequiresUser[VELMOR_TEXT_SIZE];
    char DefaultUser[VELMOR_TEXT_SIZE];
    char DefaultPassword[VELMOR_TEXT_SIZE];
    char Default[VELMOR_TEXT_SIZE];
    char Country[VELMOR_TEXT_SIZE]; /* display name */
    int32_t aBasicDUNSettingId;     /* identifier in the catalogue, -1: none */
} Velmor_DUNSetting;

/* The host's read callback: waits for the next byte from the phone and stores it in `buffer`.
 *
 * buffer   takes the byte
 * count    number of bytes wanted, always 1
 * timeout  the longest time to wait: the catalogue's variable AT-TIME-OUT, -1 when it is missing.
 *          The catalogue and the host agree on the unit; the library does not interpret it.
 *
 * Returns the number of bytes stored. 1 is success, any other value is a failed read. The library
 * repeats a failed read at once, up to AT-RETRY times for each byte. AT-RETRY is the catalogue's
 * number and may be as large as 2147483647: a callback that fails without waiting is then called
 * for minutes. */
typedef long (*Velmor_ReadFunction)(char* buffer, long count, long timeout);

/* The host's send callback: writes a command to the phone.
 *
 * buffer   the command; do not read beyond `length`
 * length   its length in bytes
 *
 * Returns the number of bytes sent. Any value other than `length` is a failed send. */
typedef long (*Velmor_SendFunction)(const char* buffer, long length);

/* Starts the session: loads the catalogue and keeps the callbacks. The catalogue decides whether
 * calls are traced, this one included. The function also writes a copy of the catalogue, whose path
 * is that of the catalogue with ".encode" appended. A copy that holds these bytes already is left
 * alone. A failure to write the copy, for example in a read-only directory, has no effect.
 *
 * aDatabaseFile  path of the catalogue
 * aReadFunction, aSendFunction  the link to the phone, needed for detection only. They must not
 *                throw a C++ exception: host and library can have a C++ runtime each.
 *
 * Returns 0, or -1 when the file cannot be read or lacks one of the tables Countries, Phones,
 * Manufacturers, BasicDUNSettings, ManufacturerIdentification, PhoneIdentification or
 * NetworkIdentification. After -1 there is no session; the callbacks of an earlier session stay.
 *
 * To change the catalogue, call Velmor_DeInitialise and then this function again. Without
 * Velmor_DeInitialise the library keeps the rows it found before, for the last detection and for
 * the country last asked for. Their texts are empty, because their catalogue is gone. */
VELMOR_EXPORT long Velmor_Initialise(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                                     Velmor_SendFunction aSendFunction);

/* Ends the session and frees the catalogue. Has no effect without a session. */
VELMOR_EXPORT void Velmor_DeInitialise(void);

/* Returns the version number of the catalogue, 0 when it has none or a text that is no number, -1
 * without a session. */
VELMOR_EXPORT long Velmor_GetVersionDatabase(long aHandle);

/* Returns the version of the library and its interface: 100 times the number before the point, plus
 * the number after it. Needs no session. */
VELMOR_EXPORT long Velmor_GetVersionLibrary(void);

/* Returns the number of countries in the catalogue, 0 without a session. */
VELMOR_EXPORT long Velmor_GetNrCountries(long aHandle);

/* Copies the name of a country.
 *
 * aCountryIndex        0 to the number of countries - 1, in the catalogue's order
 * aCountryDescription  takes the name; all zeros on failure
 * sizeIO               its size in bytes
 *
 * Returns 0, or -1 when there is no such country or no session. */
VELMOR_EXPORT long Velmor_GetCountryByIndex(long aHandle, long aCountryIndex,
                                            char* aCountryDescription, long sizeIO);

/* Returns the number of phones in the catalogue, 0 without a session. */
VELMOR_EXPORT long Velmor_GetNrOfPhones(long aHandle);

/* Copies the identifier and the description of a phone, "manufacturer: model".
 *
 * aPhoneIndex        0 to the number of phones - 1, in the catalogue's order
 * aPhoneId           takes the identifier, for Velmor_GetDUNSetting; -1 on failure or when the
 *                    catalogue's identifier is not a number
 * aPhoneDescription  takes the description; all zeros on failure
 * sizeIO             its size in bytes
 *
 * Returns 0, or -1 when there is no such phone, its manufacturer is not in the catalogue, or there
 * is no session. */
VELMOR_EXPORT long Velmor_GetPhoneByIndex(long aHandle, long aPhoneIndex, long* aPhoneId,
                                          char* aPhoneDescription, long sizeIO);

/* Returns the number of DUN settings of a country, or -1 when there is no such country or no
 * session. The library keeps the rows found until the host asks for another country. To search the
 * catalogue only once for each country, fetch the settings country by country. */
VELMOR_EXPORT long Velmor_GetCountryNrOfBasicDUNSettings(long aHandle, long aCountryIndex);

/* Fills in a DUN setting of a country, for display. The dial and initialisation strings stay empty,
 * because they depend on the phone.
 *
 * aCountryIndex          0 to the number of countries - 1
 * aBasicDUNSettingIndex  0 to the number of the country's settings - 1
 * settingIO              takes the setting; on failure all texts are empty and the identifier is -1
 *
 * Returns 0, or -1 when there is no such setting or no session, or settingIO is null. */
VELMOR_EXPORT long Velmor_GetCountryBasicDUNSettingByIndex(long aHandle, long aCountryIndex,
                                                           long aBasicDUNSettingIndex,
                                                           Velmor_DUNSetting* settingIO);

/* Writes the DUN settings of all countries to the trace log, for catalogue maintainers. Without
 * tracing it has no visible effect. The library version in this list is always 99. */
VELMOR_EXPORT void OnNetworkListnetworks(void);

/* Asks the attached phone for its manufacturer, its model and its network, in up to eight AT
 * commands. The functions below answer from the result until the next detection. The settings found
 * end with the session. The detected phone's identifier stays: the next session looks it up in its
 * own catalogue.
 *
 * manuResponseIO   takes the relevant line of the last answer about the manufacturer, unchanged
 * manuResponse_sizeIO   its size in bytes
 * phoneResponseIO, phoneResponse_sizeIO   the same for the model
 *
 * The two lines help to add an unknown phone to the catalogue.
 *
 * Returns 0 when the phone was identified or at least one DUN setting was found. Returns -1 when
 * neither was found, or without a session; nothing is sent without a session.
 *
 * The call waits in the callbacks and reads as long as the phone sends. To limit its time, the
 * host's read callback must fail after a certain time or number of bytes. */
VELMOR_EXPORT long Velmor_DetectPhoneAndNetwork(long aHandle, char* manuResponseIO,
                                                long manuResponse_sizeIO, char* phoneResponseIO,
                                                long phoneResponse_sizeIO);

/* Copies the names of the detected phone and of its manufacturer.
 *
 * nameIO, name_sizeIO   buffer for the phone's name and its size in bytes
 * manuIO, manu_sizeIO   the same for the manufacturer's name; empty when the catalogue has none
 *
 * Returns the phone's identifier, or -1 when no phone was detected, or when its identifier is not a
 * number or not in the table Phones. */
VELMOR_EXPORT long Velmor_GetDetectedPhone(long aHandle, char* nameIO, long name_sizeIO,
                                           char* manuIO, long manu_sizeIO);

/* Writes the number of DUN settings for the detected network to countO: 0 when there are none, when
 * nothing was detected or without a session. Returns 0. */
VELMOR_EXPORT long Velmor_GetNrDetectedDUNSettings(long aHandle, long* countO);

/* Fills in a detected DUN setting, ready to dial.
 *
 * index      0 to the number of detected settings - 1
 * settingIO  takes the setting. Without one the identifier is -1 and all texts are empty.
 *            Exception: rows for an empty country or network type still fill their fields.
 *
 * Returns 0, or -1 when there is no such setting or no session, or settingIO is null. Returns -1
 * also when BasicDUNForPhone does not have exactly one row for the detected phone and this type of
 * network. The dial and initialisation strings are empty then; all other fields are filled. Values
 * that make one of these strings longer than 65536 bytes count as running out of memory: -1, and
 * all texts are empty. */
VELMOR_EXPORT long Velmor_GetDetectedDUNSettingByIndex(long aHandle, long index,
                                                       Velmor_DUNSetting* settingIO);

/* Fills in a DUN setting for a phone, both given by their identifiers. It needs no detection: it is
 * for a host that stored an earlier choice.
 *
 * aPhoneId            from Velmor_GetPhoneByIndex or Velmor_GetDetectedPhone
 * aBasicDUNSettingId  from an earlier DUN setting
 * settingIO           takes the setting; without one as above
 *
 * An identifier beyond 32 bits counts as the nearest 32-bit value.
 *
 * Returns 0 when the catalogue has the setting, and at least one row of BasicDUNForPhone for the
 * phone and the setting's type of network. With several rows the dial and initialisation strings
 * are empty. When both identifiers are negative, the row for the phone alone is enough. Returns -1
 * otherwise, also when settingIO is null or there is no session. */
VELMOR_EXPORT long Velmor_GetDUNSetting(long aHandle, long aPhoneId, long aBasicDUNSettingId,
                                        Velmor_DUNSetting* settingIO);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
