#pragma once

class QLocalSocket;

namespace SocketPeer {

/// Whether the process at the other end of a connection runs as this process's user. The system vouches for it.
bool isOfThisUser(QLocalSocket const& socket);

} // namespace SocketPeer
