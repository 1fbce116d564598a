/* SPDX-License-Identifier: MIT
 *
 * Velmor: finds out which mobile phone is attached and which network it is on, and hands out the
 * dial-up networking (DUN) settings that bring the device online.
 *
 * Conventions of this interface
 *
 * 1. Integers are `long` in the prototypes and hold 32-bit values on every target: a number read
 *    from the catalogue saturates at the 32-bit limits.
 * 2. A function returns 0 for success and -1 for failure unless it says otherwise. Counting
 *    functions return the count. No function throws, and none ends the process; running out of
 *    memory is a failure like any other (0 from the functions that count countries and phones).
 * 3. Buffers and records belong to the host; the library keeps no pointer to them. A text buffer
 *    is first filled with zeros over its whole size, then takes the text. A text of `size` bytes
 *    or more arrives as its first `size` bytes WITHOUT a terminator: read at most `size` bytes.
 *    A size of 0 or less, or a null buffer, is not written.
 * 4. Null pointers are harmless: a null text or output pointer is not written, a null path is a
 *    missing file, a null callback is a read or a send that fails.
 * 5. There is one session in a process. The argument `aHandle` of the query functions selects
 *    nothing; pass 0. It appears in the trace log.
 * 6. The library starts no threads and takes no locks: call it from one thread at a time, and not
 *    from inside its callbacks.
 * 7. When the setting TRACE of the catalogue begins with y or Y, every call is written to the trace
 *    log. The log holds the user names and passwords that pass through the calls.
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

/* The dial-up settings of one access point: what the host needs to bring the device online. 3588
 * bytes without padding. A text of 256 bytes or more has no terminator. */
#define VELMOR_TEXT_SIZE 256
typedef struct {
    char InitializationString[VELMOR_TEXT_SIZE]; /* modem initialisation: AT+CGDCONT, see 3GPP
                                                    TS 27.007 */
    char DialString[VELMOR_TEXT_SIZE];           /* what the modem dials, for instance ATD*99# */
    char Dns1[VELMOR_TEXT_SIZE]; /* addresses as text, empty: assigned on connection */
    char Dns2[VELMOR_TEXT_SIZE];
    char GatewayIP[VELMOR_TEXT_SIZE];
    char APN[VELMOR_TEXT_SIZE]; /* access point name, see 3GPP TS 23.003 */
    char DisplayName[VELMOR_TEXT_SIZE];
    char ClientIP[VELMOR_TEXT_SIZE];
    char ContractType[VELMOR_TEXT_SIZE]; /* these two and Default as the catalogue has them */
    char RequiresUser[VELMOR_TEXT_SIZE];
    char DefaultUser[VELMOR_TEXT_SIZE];
    char DefaultPassword[VELMOR_TEXT_SIZE];
    char Default[VELMOR_TEXT_SIZE];
    char Country[VELMOR_TEXT_SIZE]; /* display name */
    int32_t aBasicDUNSettingId;     /* identifier in the catalogue, -1: none */
} Velmor_DUNSetting;

/* The host's read callback: waits for the phone's next byte and places it in `buffer`.
 *
 * buffer   where the byte goes
 * count    bytes wanted, always 1
 * timeout  how long to wait at most: the setting AT-TIME-OUT of the catalogue as it stands, -1 when
 *          it is missing. The unit is between the catalogue and the host; the library neither
 *          measures nor interprets it.
 *
 * Returns the number of bytes placed. 1 is success; anything else is a failed read, which the
 * library repeats up to AT-RETRY times for each byte. */
typedef long (*Velmor_ReadFunction)(char* buffer, long count, long timeout);

/* The host's send callback: writes a command to the phone.
 *
 * buffer   the command; not to be read beyond `length`
 * length   its length in bytes
 *
 * Returns the number of bytes sent. Anything but `length` is a failed send. */
typedef long (*Velmor_SendFunction)(const char* buffer, long length);

/* Starts the session: loads the catalogue and keeps the callbacks. Also writes a copy of the
 * catalogue beside it, named after it with ".encode" appended; that this fails, in a read-only
 * directory say, changes nothing. Settles whether calls are traced, this one included.
 *
 * aDatabaseFile  path of the catalogue
 * aReadFunction, aSendFunction  the link to the phone; needed for detection only. Neither lets a
 * C++ exception out: the host's runtime and the library's may be two.
 *
 * Returns 0, or -1 when the file cannot be read or lacks one of the tables Countries, Phones,
 * Manufacturers, BasicDUNSettings, ManufacturerIdentification, PhoneIdentification or
 * NetworkIdentification. After -1 there is no session, and the callbacks of an earlier one stay.
 *
 * May be called again to change the catalogue. Call Velmor_DeInitialise before: otherwise the
 * settings of the country last asked about and the detected ones are still answered from rows of
 * the catalogue that is gone, with empty texts. */
VELMOR_EXPORT long Velmor_Initialise(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                                     Velmor_SendFunction aSendFunction);

/* Ends the session and frees the catalogue. Harmless without a session. */
VELMOR_EXPORT void Velmor_DeInitialise(void);

/* Returns the version number of the catalogue, 0 when it has none, -1 without a session. */
VELMOR_EXPORT long Velmor_GetVersionDatabase(long aHandle);

/* Returns the version of the library and its interface, 150 for 1.50. Needs no session. */
VELMOR_EXPORT long Velmor_GetVersionLibrary(void);

/* Returns the number of countries in the catalogue; 0 without a session. */
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

/* Returns the number of phones in the catalogue; 0 without a session. */
VELMOR_EXPORT long Velmor_GetNrOfPhones(long aHandle);

/* Copies the identifier and the description of a phone, "manufacturer: model".
 *
 * aPhoneIndex        0 to the number of phones - 1, in the catalogue's order
 * aPhoneId           takes the identifier, for Velmor_GetDUNSetting; -1 on failure, or when the
 *                    catalogue's identifier is not a number
 * aPhoneDescription  takes the description; all zeros on failure
 * sizeIO             its size in bytes
 *
 * Returns 0, or -1 when there is no such phone, its manufacturer is unknown, or there is no
 * session. */
VELMOR_EXPORT long Velmor_GetPhoneByIndex(long aHandle, long aPhoneIndex, long* aPhoneId,
                                          char* aPhoneDescription, long sizeIO);

/* Returns the number of DUN settings of a country, or -1 when there is no such country or no
 * session. The rows found are kept until another country is asked about, so that fetching the
 * settings of one country after the other searches the catalogue once for each country. */
VELMOR_EXPORT long Velmor_GetCountryNrOfBasicDUNSettings(long aHandle, long aCountryIndex);

/* Fills a record with a DUN setting of a country, for display: the dial and initialisation strings,
 * which depend on the phone, stay empty.
 *
 * aCountryIndex          0 to the number of countries - 1
 * aBasicDUNSettingIndex  0 to the number of the country's settings - 1
 * settingIO              takes the setting; on failure all texts are empty and the identifier is -1
 *
 * Returns 0, or -1 when there is no such setting or no session, or settingIO is null. */
VELMOR_EXPORT long Velmor_GetCountryBasicDUNSettingByIndex(long aHandle, long aCountryIndex,
                                                           long aBasicDUNSettingIndex,
                                                           Velmor_DUNSetting* settingIO);

/* Writes the settings of all countries to the trace log, for whoever maintains the catalogue; does
 * nothing visible when tracing is off. The library version it names is 99, for ever. */
VELMOR_EXPORT void OnNetworkListnetworks(void);

/* Asks the attached phone who it is and on which network, in up to eight AT commands, and keeps
 * what was found for the functions below until the next detection. The settings found end with the
 * session; the detected phone's identifier outlives it and is looked up in whatever catalogue there
 * is.
 *
 * manuResponseIO   takes the phone's answer to the last question for its manufacturer, as it came
 * manuResponse_sizeIO   its size in bytes
 * phoneResponseIO, phoneResponse_sizeIO   the same for its model
 *
 * The answers help whoever adds a phone to the catalogue.
 *
 * Returns 0 when the phone was identified or at least one DUN setting was found, -1 when neither or
 * without a session; then nothing is sent. Blocks inside the callbacks: the library reads on as
 * long as the phone sends, so a host that wants an end to every detection lets its read callback
 * fail once it has waited or read enough. */
VELMOR_EXPORT long Velmor_DetectPhoneAndNetwork(long aHandle, char* manuResponseIO,
                                                long manuResponse_sizeIO, char* phoneResponseIO,
                                                long phoneResponse_sizeIO);

/* Copies the names of the detected phone and of its manufacturer.
 *
 * nameIO, name_sizeIO   buffer for the phone's name and its size in bytes
 * manuIO, manu_sizeIO   the same for the manufacturer's; empty when the catalogue does not name it
 *
 * Returns the phone's identifier, or -1 when no phone was detected, its identifier is not a number
 * or not in the catalogue's list of phones. */
VELMOR_EXPORT long Velmor_GetDetectedPhone(long aHandle, char* nameIO, long name_sizeIO,
                                           char* manuIO, long manu_sizeIO);

/* Writes the number of DUN settings that fit the detected network to countO, 0 when there are none,
 * nothing was detected or there is no session. Returns 0. */
VELMOR_EXPORT long Velmor_GetNrDetectedDUNSettings(long aHandle, long* countO);

/* Fills a record with a detected DUN setting, ready to dial.
 *
 * index      0 to the number of detected settings - 1
 * settingIO  takes the setting; without one the identifier is -1 and all texts are empty, but for
 *            what the catalogue holds for an empty country or network type
 *
 * Returns 0, or -1 when there is no such setting or no session, settingIO is null, or the catalogue
 * does not hold exactly one set of dial and initialisation strings for the detected phone on this
 * type of network: these strings are empty then and the rest of the record is filled. */
VELMOR_EXPORT long Velmor_GetDetectedDUNSettingByIndex(long aHandle, long index,
                                                       Velmor_DUNSetting* settingIO);

/* Fills a record with a DUN setting for a phone, both known by their identifiers, for a host that
 * remembers an earlier choice. Needs no detection.
 *
 * aPhoneId            as from Velmor_GetPhoneByIndex or Velmor_GetDetectedPhone
 * aBasicDUNSettingId  as from an earlier record
 * settingIO           takes the setting; without one as above
 *
 * Identifiers beyond 32 bits are taken for the nearest limit. Returns 0 when the setting is there
 * and the catalogue holds dial and initialisation strings for the phone on this type of network;
 * with more than one set they are left empty. Returns -1 otherwise, except that with two negative
 * identifiers the phone's strings alone are enough. Returns -1 when settingIO is null or there is
 * no session. */
VELMOR_EXPORT long Velmor_GetDUNSetting(long aHandle, long aPhoneId, long aBasicDUNSettingId,
                                        Velmor_DUNSetting* settingIO);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
