// SPDX-License-Identifier: MIT
#include "database/rows.h"
#include "session/call_frame.h"
#include "session/host_text.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetNrCountries(long aHandle) {
    return Framed("Velmor_GetNrCountries", 0, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        return CountOf(frame.session().countries);
    });
}

long Velmor_GetCountryByIndex(long aHandle, long aCountryIndex, char* aCountryDescription,
                              long sizeIO) {
    return Framed("Velmor_GetCountryByIndex", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aCountryIndex", aCountryIndex);
        frame.InAddress("aCountryDescription", aCountryDescription);
        frame.In("sizeIO", sizeIO);
        const auto country = RowAt(frame.session().countries, aCountryIndex);
        FillText(aCountryDescription, sizeIO, country.Text(schema::kName));
        frame.Out("aCountryDescription", aCountryDescription, sizeIO);
        return country ? 0 : -1;
    });
}
