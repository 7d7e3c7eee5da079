// The general sections of the connector's ini file: "Application" and
// "AllApplication". The groupwares' own sections are read in their rooms.
#pragma once

#include "common/configuration.h"
#include "common/ini_file.h"

namespace hublink {

// Reads every key but "kill" into `configuration`. Without a groupware in use
// the reading ends behind their names. Throws AutomationError at a value that
// should be a number and is none. What was not reached stays as it was.
void readConnectorSettings(const IniFile& ini, Configuration& configuration);

// Whether a groupware is in use.
bool usesGroupware(const Configuration& configuration);

// "kill", by which another program asks the connector to stop.
bool isStopRequested(const IniFile& ini);

// Whether "kill" can be read: not when it is missing or empty, nor while another
// program keeps the file to itself.
bool isStopRequestReadable(const IniFile& ini);

// Writes the request. False when the file could not be written.
bool requestStop(const IniFile& ini);

// Sets "kill" back. False when the file could not be written.
bool clearStopRequest(const IniFile& ini);

}
