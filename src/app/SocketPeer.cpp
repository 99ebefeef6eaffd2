#include "app/SocketPeer.h"

#include <QLocalSocket>

#include <sys/socket.h>
#include <unistd.h>

bool SocketPeer::isOfThisUser(QLocalSocket const& socket) {
    ucred peer = {};
    socklen_t size = sizeof(peer);
    return ::getsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           size == sizeof(peer) && peer.uid == geteuid();
}
