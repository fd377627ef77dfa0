#pragma once

#include "NetworkErrors.h"

#include <string>

namespace KLX::Host {

/**
 * Hands out the IPv4 address of a name server, `order` counting from 1 through those that
 * /etc/resolv.conf names and that have one. Where that file names nothing but systemd-resolved's
 * own relay on this machine, the servers that the relay asks are meant.
 *
 * Throws NetworkFault when the file cannot be read. On an error `text` is left alone.
 */
NetworkError nameServer(int order, std::string& text);

} // namespace KLX::Host
