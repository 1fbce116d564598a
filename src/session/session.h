// SPDX-License-Identifier: MIT
#pragma once

#include "database/interfaces.h"
#include "storage/encoded_copy.h"
#include "velmor.h"

// The only session of the process: all state of the library. The exported operations hand it on to
// what they call, which reads and writes its fields directly.
class Velmor {
  public:
    // Shorter names, for the command.
    using Table = vel::TablePointer;
    using Rows = vel::RowsPointer;

    // The session, made on first use and destroyed when the library is unloaded or the process
    // ends. After that, a session that stays closed.
    static Velmor* getVelmor();

    Velmor(const Velmor&) = delete;
    Velmor& operator=(const Velmor&) = delete;

    // Loads the catalogue and fetches its tables; a table that the file lacks becomes null. Keeps
    // the cached and detected rows, the identifiers and the callbacks.
    void Init(const char* aDatabaseFile, vel::EncodedCopy copy = vel::EncodedCopy::kWrite);
    // Whether the database and every table that the exported operations require are there.
    bool IsComplete() const;
    // Releases the catalogue and the rows kept from it. For compatibility the tables
    // ManufacturerIdentification and Networks stay, which no query uses without the others, and so
    // do the identifiers and the callbacks.
    void Release();
    // Drops what the last detection found.
    void ForgetDetection();
    // The table of that name, or null.
    vel::TablePointer FetchTable(const vel::String& name) const;

    vel::Pointer<vel::IDatabase> database;
    vel::TablePointer phones;
    vel::TablePointer basicDUNSettings;
    vel::TablePointer countries;
    vel::TablePointer manufacturers;
    vel::TablePointer manufacturerIdentification;
    vel::TablePointer phoneIdentification;
    vel::TablePointer networkIdentification;
    vel::TablePointer basicDUNForPhone;
    vel::TablePointer networks;

    // The three identifiers start without a buffer and are emptied to that state: making a session
    // and forgetting a detection need no memory.
    vel::RowsPointer countrySettings;        // the settings of the country last asked about
    vel::String countrySettingsId{nullptr};  // the key of that country
    vel::RowsPointer detectedSettings;       // what the last detection found
    vel::String detectedPhoneId{nullptr};
    vel::String detectedNetworkId{nullptr};

    bool traceSwitch = false;  // whether calls are written to the trace log
    int traceDepth = 0;        // calls that have not returned yet; kept by CallFrame

    Velmor_ReadFunction readFunction = nullptr;
    Velmor_SendFunction sendFunction = nullptr;

  private:
    Velmor() = default;
    ~Velmor();
};
