// SPDX-License-Identifier: MIT
#include "session/setting.h"

#include "session/rows.h"
#include "session/schema.h"

namespace vel {

String Setting::get_Setting(const String& name) const {
    return RowWith(table_, schema::kVariable, name).Text(schema::kValue).ToString();
}

}  // namespace vel
