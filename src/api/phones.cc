// SPDX-License-Identifier: MIT
#include "database/rows.h"
#include "foundation/number.h"
#include "session/call_frame.h"
#include "session/host_text.h"
#include "session/schema.h"

using namespace vel;

long Velmor_GetNrOfPhones(long aHandle) {
    return Framed("Velmor_GetNrOfPhones", 0, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        return CountOf(frame.session().phones);
    });
}

long Velmor_GetPhoneByIndex(long aHandle, long aPhoneIndex, long* aPhoneId, char* aPhoneDescription,
                            long sizeIO) {
    return Framed("Velmor_GetPhoneByIndex", -1, [&](CallFrame& frame) -> long {
        frame.In("aHandle", aHandle);
        frame.In("aPhoneIndex", aPhoneIndex);
        frame.InAddress("aPhoneId", aPhoneId);
        frame.InAddress("aPhoneDescription", aPhoneDescription);
        frame.In("sizeIO", sizeIO);
        FillText(aPhoneDescription, sizeIO, {});
        long id = -1;
        if (aPhoneId != nullptr) {
            *aPhoneId = id;
        }
        const Velmor& session = frame.session();
        const auto phone = RowAt(session.phones, aPhoneIndex);
        const auto manufacturer = RowNamedBy(phone, schema::kManufacturerID, session.manufacturers);
        if (manufacturer) {
            String description = manufacturer.Text(schema::kName).c_str();
            description.Append(": ");
            description.Append(phone.Text(schema::kName).c_str());
            FillText(aPhoneDescription, sizeIO, description);
            id = ReadNumber(phone.Text(schema::kID).c_str(), -1);
        }
        if (aPhoneId != nullptr) {
            *aPhoneId = id;
        }
        frame.Out("aPhoneDescription", aPhoneDescription, sizeIO);
        return manufacturer ? 0 : -1;
    });
}
