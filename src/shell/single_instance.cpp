#include "shell/single_instance.h"

SingleInstance::SingleInstance()
    : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\Hublink running")), first_(GetLastError() != ERROR_ALREADY_EXISTS)
{
}

SingleInstance::~SingleInstance()
{
    if (mutex_) CloseHandle(mutex_);
}
