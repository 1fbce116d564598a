// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"

#include "session/schema.h"

namespace vel {
namespace {

void TraceTexts(CallFrame& frame, const DialTexts& texts) {
    frame.Line(texts.initialization.c_str());
    frame.Line(texts.dial.c_str());
}

}  // namespace

PhoneRows::PhoneRows(const String& phoneId, const String& networkType) {
    rows_ = FindRows(Velmor::getVelmor()->basicDUNForPhone,
                     {{schema::kPhoneID, phoneId}, {schema::kNetworkType, networkType}});
}

DialTexts PhoneRows::TextsFor(CallFrame& frame, const Pointer<IRow>& setting) const {
    DialTexts texts;
    if (!IsUnique()) {
        return texts;
    }
    const auto phone = RowAt(rows_, 0);
    texts.initialization = CellText(phone, schema::kInitializationString).ToString();
    texts.dial = CellText(phone, schema::kDialString).ToString();
    if (!setting) {
        return texts;
    }
    TraceTexts(frame, texts);
    for (const auto& [placeholder, column, message] : kPlaceholders) {
        const String value = CellText(setting, column).ToString();
        frame.Line(message, value.c_str());
        texts.initialization = texts.initialization.Replace(placeholder, value);
        texts.dial = texts.dial.Replace(placeholder, value);
    }
    TraceTexts(frame, texts);
    return texts;
}

String NetworkType(const TextView& networkId) {
    const auto network = RowById(Velmor::getVelmor()->networks, networkId);
    return CellText(network, schema::kNetworkType).ToString();
}

}  // namespace vel
