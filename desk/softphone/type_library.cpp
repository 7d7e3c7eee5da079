#include "desk/softphone/type_library.h"

#include "automation/error.h"
#include "automation/server/registration.h"

#include <oleauto.h>

namespace desk::softphone {

automation::ComPtr<ITypeInfo> TypeLibrary::describe(REFGUID id)
{
    if (!library_)
        automation::check(LoadTypeLibEx(automation::server::programPath().c_str(), REGKIND_NONE, library_.receive()),
                          L"LoadTypeLibEx");
    automation::ComPtr<ITypeInfo> type;
    automation::check(library_->GetTypeInfoOfGuid(id, type.receive()), L"GetTypeInfoOfGuid");
    return type;
}

}
