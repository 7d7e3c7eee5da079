#include "convid/file_retry.h"

namespace convid {

namespace {

bool isConnectionLoss(DWORD code)
{
    switch (code) {
    case ERROR_REM_NOT_LIST:
    case ERROR_BAD_NETPATH:
    case ERROR_NETWORK_BUSY:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_ADAP_HDW_ERR:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_BAD_NET_NAME:
    case ERROR_SEM_TIMEOUT:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE:
    case ERROR_CONNECTION_ABORTED: return true;
    default: return false;
    }
}

}

DWORD replaceWithRetries(automation::Milliseconds timeout, const std::function<DWORD()>& replace)
{
    bool answerLost = false;
    const auto isPassing = [](DWORD code) {
        return isInUse(code) || code == ERROR_ACCESS_DENIED || isConnectionLoss(code);
    };
    return retryWhile(isPassing, timeout, [&]() -> DWORD {
        const DWORD result = replace();
        if (answerLost && result == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
        answerLost |= isConnectionLoss(result);
        return result;
    });
}

}
