#pragma once

#include <string>

namespace kestrel::posix {

/// Notes a temporary file that shall go when a signal ends the program. The name must stay as it
/// is until it is forgotten.
void RemoveOnSignal(const std::string& name);
void ForgetOnSignal(const std::string& name);

/// From now on the signals that end the program (interrupt, hang-up, termination) remove the
/// noted files first. A signal that the program was started to ignore stays ignored.
void CatchEndingSignals();

}  // namespace kestrel::posix
