// The program's rule is that no error leaves a procedure: it ends quietly and
// its caller goes on with the result set so far. So a procedure declares its
// result first and does its work inside the trap.
#pragma once

#include <functional>

// Runs `body`; an exception ends it and is handed to the diagnostic hook.
void trapErrors(const wchar_t* procedure, const std::function<void()>& body);

// The same; after an error in `body`, `onError` runs, under a trap of its own.
void trapErrors(const wchar_t* procedure, const std::function<void()>& body, const std::function<void()>& onError);

// Told of every trapped error: the procedure and what was thrown. The default
// writes it to the debugger. Returns the hook in force before.
using DiagnosticHook = std::function<void(const wchar_t* procedure, const char* error)>;
DiagnosticHook setDiagnosticHook(DiagnosticHook hook);
