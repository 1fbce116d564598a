// SPDX-License-Identifier: MIT
#include "session/setting.h"

#include "session/schema.h"

namespace vel {

String Setting::get_Setting(const TextView& name) const {
    return RowWith(table_, schema::kVariable, name).Text(schema::kValue).ToString();
}

}  // namespace vel
