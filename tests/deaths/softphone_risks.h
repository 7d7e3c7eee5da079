// What may happen when something goes wrong at one of the softphone's calls.
#pragma once

#include "partner_call.h"
#include "risk.h"

namespace deaths {

std::vector<Risk> softphoneRisks(const std::vector<PartnerCall>& calls);

}
