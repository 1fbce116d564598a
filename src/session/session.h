// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"
#include "velmor.h"

// The one session of the process: all state of the library. The exported operations are its only
// users; between them they read and fill it openly.
class Velmor {
  public:
    using Table = vel::Pointer<vel::ITable>;
    using Rows = vel::Pointer<vel::ICollection<vel::IRow*>>;

    // The session, made on first use and destroyed when the library is unloaded.
    static Velmor* getVelmor();

    Velmor(const Velmor&) = delete;
    Velmor& operator=(const Velmor&) = delete;

    // Loads the catalogue and fetches its tables; what the file lacks becomes null. Keeps the
    // cached and detected rows, the identifiers and the callbacks.
    void Init(const char* aDatabaseFile);
    // Whether everything is there without which nothing can be answered.
    bool IsComplete() const;
    // Lets go of the catalogue and of the rows kept from it. Kept: two tables that no query needs
    // without the others, the identifiers and the callbacks stay as they are.
    void Release();
    // Drops what the last detection found.
    void ForgetDetection();
    // The table of that name, null when there is none.
    Table FetchTable(const char* name) const;

    vel::Pointer<vel::IDatabase> database;
    Table phones;
    Table basicDUNSettings;
    Table countries;
    Table manufacturers;
    Table manufacturerIdentification;
    Table phoneIdentification;
    Table networkIdentification;
    Table basicDUNForPhone;
    Table networks;

    Rows countrySettings;  // the settings of the country last asked about,
    // The three identifiers start as no text and are dropped to none: a session comes into being
    // and forgets without needing memory.
    vel::String countrySettingsId{nullptr};  // and the key of that country
    Rows detectedSettings;                   // what the last detection found
    vel::String detectedPhoneId{nullptr};
    vel::String detectedNetworkId{nullptr};

    bool traceSwitch = false;  // whether calls are written to the trace log
    int traceDepth = 0;        // framed calls under way; kept by CallFrame

    Velmor_ReadFunction readFunction = nullptr;
    Velmor_SendFunction sendFunction = nullptr;

  private:
    Velmor() = default;
    ~Velmor() = default;
};
