// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// What a catalogue source is made of; docs/catalogue.md has the grammar.
inline constexpr char kSourceSeparator = '#';
inline constexpr char kHiddenLine = 'E';  // stands before a line that is enciphered later
inline const std::string kDatabaseBegin = "$_DATABASE_BEGIN_$";
inline const std::string kDatabaseEnd = "$_DATABASE_END_$";
inline const std::string kTableBegin = "$_TABLE_BEGIN_$";
inline const std::string kTableEnd = "$_TABLE_END_$";
