// SPDX-License-Identifier: MIT
#include "dun/dial_texts.h"

#include "session/schema.h"

namespace vel {
namespace {

// Longer expanded texts count as running out of memory: values that hold placeholders multiply, and
// a catalogue of 4 kB could ask for gigabytes.
constexpr int kLongestText = 65536;

void TraceTexts(CallFrame& frame, const DialTexts& texts) {
    frame.Line(texts.initialization.c_str());
    frame.Line(texts.dial.c_str());
}

}  // namespace

String Expand(const String& text, const Placeholder& placeholder, const String& value) {
    const int most = text.Length() > kLongestText ? text.Length() : kLongestText;
    return text.Replace(placeholder.text, value, most);
}

PhoneRows::PhoneRows(const TablePointer& texts, const TextView& phoneId,
                     const TextView& networkType)
    : rows_(FindRows(texts, {{schema::kPhoneID, phoneId}, {schema::kNetworkType, networkType}})) {}

DialTexts PhoneRows::TextsFor(CallFrame& frame, const RowView& row) const {
    DialTexts texts;
    if (!IsUnique()) {
        return texts;
    }
    const auto phone = RowAt(rows_, 0);
    texts.initialization = phone.Text(schema::kInitializationString).ToString();
    texts.dial = phone.Text(schema::kDialString).ToString();
    if (!row) {
        return texts;
    }
    TraceTexts(frame, texts);
    for (const Placeholder& placeholder : kPlaceholders) {
        const String value = row.Text(placeholder.column).ToString();
        frame.Line(placeholder.message, value.c_str());
        texts.initialization = Expand(texts.initialization, placeholder, value);
        texts.dial = Expand(texts.dial, placeholder, value);
    }
    TraceTexts(frame, texts);
    return texts;
}

TextView NetworkType(const TablePointer& networks, const TextView& networkId) {
    return RowById(networks, networkId).Text(schema::kNetworkType);
}

}  // namespace vel
