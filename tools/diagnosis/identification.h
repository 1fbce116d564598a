// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/exchange.h"

namespace tool {

// The line with which a phone names itself or its network, and the key that a catalogue has for it.
struct Response {
    std::string text;
    std::string key;  // empty: the phone gave no usable answer

    bool IsUsable() const { return !key.empty(); }
};

// What the phone said about itself and its network, and the rows of the catalogue that were found.
struct Identification {
    Response manufacturer;
    Response phone;
    Response network;
    // Other usable answers to the same questions.
    std::vector<Response> otherManufacturers;
    std::vector<Response> otherPhones;
    // What the labelled lines of an answer to ATI say; empty: nothing.
    std::string labelKey;  // the key of a label that ATI3 begins with
    std::string labelledManufacturer;
    std::string labelledModel;
    std::string labelledRevision;
    // Empty: not in the catalogue.
    std::string manufacturerId;
    std::string phoneId;
    std::string networkId;

    bool cdma = false;         // whether the phone speaks CDMA and no GSM
    std::string operatorName;  // may be empty
    std::string accessPoint;   // that the network granted; empty: the phone did not tell
    std::string digits;        // up to six of the IMSI, else of an operator told as a number
};

// Reads the dialogue of a detection as the library did, with the catalogue of its session.
Identification Identify(const std::vector<Exchange>& dialogue);

// The command that asks for the contexts that are active (3GPP TS 27.007), and the first access
// point in its answer that is not only for calls. Empty: none is active, as before LTE, or the
// phone does not know the command.
constexpr char kContextQuestion[] = "AT+CGCONTRDP";
std::string GrantedAccessPoint(const std::string& answer);

// The IMSI (3GPP TS 23.003: up to 15 digits) that the phone told; empty when it told none.
std::string Imsi(const std::vector<Exchange>& dialogue);

}  // namespace tool
