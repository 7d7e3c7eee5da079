// How the identifier map is known to COM.
#pragma once

#include "automation/server/registration.h"

namespace convid {

inline constexpr automation::server::ClassRegistration classRegistration{
    .progId = L"PavexConvId.OrvelConvertId",
    .classId = {0x6FC819A5, 0x645C, 0x4241, {0x88, 0x09, 0x6B, 0xBB, 0xE1, 0xAF, 0x91, 0x3F}},
    .description = L"Pavex identifier map",
    .typeLibrary = {},
};

}
