// SPDX-License-Identifier: MIT
#include "session/setting.h"

#include "session/schema.h"

namespace vel {

String Setting::get_Setting(const String& name) const {
    String value;
    Pointer<IRow> row;
    if (table_ != nullptr && table_->FindByIndex(schema::kVariable, name, *&row) == 0 && row) {
        row->get_ColumnValue(schema::kValue, value);
    }
    return value;
}

}  // namespace vel
