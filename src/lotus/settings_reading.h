// What the Lotus sections of the ini file say: read, and nothing else done. What an error
// keeps from being reached stays as it was.
#pragma once

#include "common/ini_file.h"
#include "lotus/lotus_session.h"

#include <cstdint>
#include <functional>
#include <string>

namespace hublink {

// Where a base lies that names "<server name>".
using ServerName = std::function<std::wstring()>;
// Section "lotus base description " and the index.
void readLotusBook(const IniFile& ini, std::int16_t index, const ServerName& serverName, LotusAddressBook& book);

// How the books are read that the file describes; `index` counts from 1.
using BookReader = std::function<void(std::int16_t index, LotusAddressBook& book)>;
// The books in their order. Throws AutomationError at a count or an order that makes no sense.
void readLotusAddressBooks(const IniFile& ini, const BookReader& readBook, LotusConfiguration& configuration);

// What stands behind the books: the switches and section "lotus call log description".
void readLotusSwitchesAndCallLog(const IniFile& ini, LotusConfiguration& configuration);

// Section "lotus personnel log description".
void readLotusPersonalLog(const IniFile& ini, PersonalLogDescription& log);

}
