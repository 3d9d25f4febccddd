#include "com/server_instance.h"

namespace vintrel::com {
namespace {

Server the_server;

}  // namespace

void Server::Close() { loop_.DestroyHiddenWindow(); }

Server& TheServer() { return the_server; }

}  // namespace vintrel::com
