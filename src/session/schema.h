// SPDX-License-Identifier: MIT
#pragma once

// The names of the tables, columns and variables that the library looks for in a catalogue.
// docs/catalogue.md says what they hold.
namespace vel::schema {

inline constexpr char kCountries[] = "Countries";
inline constexpr char kPhones[] = "Phones";
inline constexpr char kManufacturers[] = "Manufacturers";
inline constexpr char kManufacturerIdentification[] = "ManufacturerIdentification";
inline constexpr char kPhoneIdentification[] = "PhoneIdentification";
inline constexpr char kNetworkIdentification[] = "NetworkIdentification";
inline constexpr char kNetworks[] = "Networks";
inline constexpr char kBasicDUNSettings[] = "BasicDUNSettings";
inline constexpr char kBasicDUNForPhone[] = "BasicDUNForPhone";
inline constexpr char kGeneralVariables[] = "GeneralVariables";
inline constexpr char kManufacturerRecipe[] = "ManufacturerIdentificationVariables";
inline constexpr char kPhoneRecipe[] = "PhoneIdentificationVariables";
inline constexpr char kNetworkRecipe[] = "NetworkIdentificationVariables";

inline constexpr char kID[] = "ID";
inline constexpr char kName[] = "Name";
inline constexpr char kManufacturerID[] = "ManufacturerID";
inline constexpr char kPhoneID[] = "PhoneID";
inline constexpr char kNetworkID[] = "NetworkID";
inline constexpr char kCountryID[] = "CountryID";
inline constexpr char kNetworkType[] = "NetworkType";
inline constexpr char kManufacturerResponse[] = "Response(AT+CGMI)";
inline constexpr char kPhoneResponse[] = "Response(AT+CGMM)";
inline constexpr char kNetworkResponse[] = "Response(AT+COPS)";
inline constexpr char kAPN[] = "APN";
inline constexpr char kNUM[] = "NUM";
inline constexpr char kVAR1[] = "VAR1";
inline constexpr char kClientIP[] = "ClientIP";
inline constexpr char kGatewayIP[] = "GatewayIP";
inline constexpr char kSubnetMask[] = "SubnetMask";
inline constexpr char kDNS1[] = "DNS1";
inline constexpr char kDNS2[] = "DNS2";
inline constexpr char kContractType[] = "ContractType";
inline constexpr char kDefault[] = "Default";
inline constexpr char kUser[] = "User";
inline constexpr char kPassword[] = "Password";
inline constexpr char kRequiresUser[] = "RequiresUserAndPassword";
inline constexpr char kDialString[] = "DialString";
inline constexpr char kInitializationString[] = "InitializationString";
inline constexpr char kVariable[] = "Variable";
inline constexpr char kValue[] = "Value";

inline constexpr char kTrace[] = "TRACE";
inline constexpr char kAtRetry[] = "AT-RETRY";
inline constexpr char kAtTimeOut[] = "AT-TIME-OUT";
inline constexpr char kMakeUpperCase[] = "MakeUpperCase";
inline constexpr char kRemoveCharacters[] = "RemoveCharacters";
inline constexpr char kCompress[] = "Compress";

}  // namespace vel::schema
