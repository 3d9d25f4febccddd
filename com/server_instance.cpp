#include "com/server_instance.h"

namespace vintrel::com {

Server the_server;

void Server::Close() { loop_.DestroyHiddenWindow(); }

}  // namespace vintrel::com
