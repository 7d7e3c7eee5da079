// What nearly every test includes, compiled once for all of them. Nothing of
// the program's own is here: its headers are to include what they use.
#pragma once

#include "support/gtest_notification.h"

#include <gtest/gtest.h>

#include <windows.h>
#include <oaidl.h>
