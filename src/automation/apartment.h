// COM for the calling thread: a single-threaded apartment.
#pragma once

#include "automation/error.h"

#include <objbase.h>

namespace automation {

class Apartment {
public:
    Apartment() { check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), L"CoInitializeEx"); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

}
