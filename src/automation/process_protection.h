// What a program asks of Windows before it does anything else: no box on errors, for
// nobody may be there to answer it, and no libraries from foreign folders.
#pragma once

namespace automation {

// Libraries come from the system's folder only; a damaged heap or an unhandled
// exception ends the process at once; faults open no box. What the system does
// not know yet is left out.
void protectProcess();

}
