// SPDX-License-Identifier: MIT
#include "database/rows.h"
#include "foundation/number.h"
#include "session/call_frame.h"
#include "session/host_text.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetDetectedPhone(long aHandle, char* nameIO, long name_sizeIO, char* manuIO,
                             long manu_sizeIO) {
    return Framed("Velmor_GetDetectedPhone", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.InAddress("nameIO", nameIO);
        frame.In("name_sizeIO", name_sizeIO);
        frame.InAddress("manuIO", manuIO);
        frame.In("manu_sizeIO", manu_sizeIO);
        FillBytes(nameIO, name_sizeIO, {});
        FillBytes(manuIO, manu_sizeIO, {});
        const Velmor& session = frame.session();
        if (session.detectedPhoneId.IsEmpty()) {
            return -1;
        }
        const auto phone = RowById(session.phones, session.detectedPhoneId);
        const auto manufacturer = RowNamedBy(phone, schema::kManufacturerID, session.manufacturers);
        FillBytes(nameIO, name_sizeIO, phone.Text(schema::kName));
        FillBytes(manuIO, manu_sizeIO, manufacturer.Text(schema::kName));
        frame.Out("nameIO", nameIO, name_sizeIO);
        frame.Out("name_sizeIO", name_sizeIO);
        frame.Out("manuIO", manuIO, manu_sizeIO);
        frame.Out("manu_sizeIO", manu_sizeIO);
        return phone ? ReadNumber(session.detectedPhoneId.c_str(), -1) : -1;
    });
}
