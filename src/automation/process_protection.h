// What a program asks of Windows before it does anything else: nobody is there
// to answer a box, and nothing foreign is to get into the process.
#pragma once

namespace automation {

// Libraries come from the system's folder only; a damaged heap or an unhandled
// exception ends the process at once; faults open no box. What the system does
// not know yet is left out.
void protectProcess();

}
