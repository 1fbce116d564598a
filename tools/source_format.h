// SPDX-License-Identifier: MIT
#pragma once

// What a catalogue source is made of; docs/catalogue.md has the grammar.
inline constexpr char kSourceSeparator = '#';
inline constexpr char kHiddenLine = 'E';  // stands before a line that is enciphered later
inline constexpr char kDatabaseBegin[] = "$_DATABASE_BEGIN_$";
inline constexpr char kDatabaseEnd[] = "$_DATABASE_END_$";
inline constexpr char kTableBegin[] = "$_TABLE_BEGIN_$";
inline constexpr char kTableEnd[] = "$_TABLE_END_$";
