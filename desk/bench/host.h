// Figures that only the host system can tell. The bench asks for one with a
// line on the standard output, "memory?" for example, and reads the answer,
// a number, from the standard input; who runs the bench by hand finds it with
// the system's own tools. All are about the hublink.exe that runs.
#pragma once

namespace desk::bench {

// Private memory, in KB: what no other process shares. Throws
// std::runtime_error when nobody answers.
long privateMemory();

// Memory in KB that it has in use, shared or not: now, and the most since that
// was asked. Throw likewise.
long residentMemory();
long peakResidentMemory();

// Processor time used so far, in milliseconds. Throws likewise.
long processorTime();

}
