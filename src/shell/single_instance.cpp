#include "shell/single_instance.h"

namespace hublink {

SingleInstance::SingleInstance()
    : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\Hublink running")),
      // One that runs with other rights lets nobody open its mutex.
      isFirst_(mutex_ && GetLastError() != ERROR_ALREADY_EXISTS)
{}

}
