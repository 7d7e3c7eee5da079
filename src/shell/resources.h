#pragma once

#define IDI_HUBLINK 1
