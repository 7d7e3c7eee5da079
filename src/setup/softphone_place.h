// The softphone on this computer.
#pragma once

#include <string>

namespace hublink::setup {

// Its folder "Connector", which may have to be made; "" without a softphone. A key
// that its removal left behind names a folder that does not exist any more.
std::wstring connectorFolderHere();

}
