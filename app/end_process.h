#pragma once

namespace velko {

// Ends the process at once, without unwinding: message boxes and the event loop may still be on
// the stack. A POSIX shell sees the low byte of `status`.
[[noreturn]] void endProcess(int status);

} // namespace velko
