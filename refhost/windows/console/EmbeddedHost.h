#pragma once

namespace refhost {

/// The program as COM starts it for another one: offers Schedulon.Application and serves until
/// the client has released everything or asks it to quit. Raises kestrel::HostError when the host
/// cannot be offered.
void RunEmbedded();

}  // namespace refhost
