// SPDX-License-Identifier: MIT
#pragma once

namespace vel {

// The markers of a catalogue file; docs/catalogue.md has the grammar.
inline constexpr char kSeparator = '#';   // after each field of a line
inline constexpr char kHiddenLine = 'E';  // begins a line of a source that is to be enciphered
inline constexpr char kDatabaseBegin[] = "$_DATABASE_BEGIN_$";
inline constexpr char kDatabaseEnd[] = "$_DATABASE_END_$";
inline constexpr char kTableBegin[] = "$_TABLE_BEGIN_$";
inline constexpr char kTableEnd[] = "$_TABLE_END_$";

}  // namespace vel
