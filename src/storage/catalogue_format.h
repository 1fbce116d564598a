// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// What a catalogue is made of; docs/catalogue.md has the grammar.
inline constexpr char kSeparator = '#';   // of the fields in a line
inline constexpr char kHiddenLine = 'E';  // before a line of a source that is enciphered later
inline constexpr char kDatabaseBegin[] = "$_DATABASE_BEGIN_$";
inline constexpr char kDatabaseEnd[] = "$_DATABASE_END_$";
inline constexpr char kTableBegin[] = "$_TABLE_BEGIN_$";
inline constexpr char kTableEnd[] = "$_TABLE_END_$";

}  // namespace vel
