#pragma once

#include "app/RuntimeFolder.h"
#include "app/SharedBlock.h"
#include "app/SingleApplication.h"

#include <QString>
#include <QStringList>

#include <memory>

class InstanceClient;
class InstanceServer;
struct InstanceBlock;

/// What a start is.
enum class InstanceRole {
    Primary,
    Secondary,
    Alone, ///< Without the service: other starts do not find it, and it looks for none.
};

/// The workings of a SingleApplication, which owns it: the block, the server of a primary and the client of a
/// secondary. Everything runs in the main thread.
///
/// Block and server have one name of a fixed series, told by the program's identity. A name that something else has
/// taken is passed over by all starts alike, as each looks through the series from its beginning, and for a living
/// primary first, while it holds the lock of the folder.
class SingleApplicationPrivate {
public:
    SingleApplicationPrivate(SingleApplication* q, SingleApplication::Modes options, QString const& userData);
    ~SingleApplicationPrivate();

    static QString getUsername();
    /// Keeps starts that came at the same moment from going on in step.
    static void randomSleep();

    /// How far the record of a primary in the block is believed.
    enum class Record { Believed, Checked };
    /// Finds out what this start is. A record that is checked counts only if somebody listens.
    void enter(Record record);
    /// Gives up what this start is.
    void leave();
    /// A copy of the block, taken under the lock; of a start without the service, that of no primary.
    InstanceBlock readBlock();

    InstanceRole role = InstanceRole::Alone;
    bool served = false; ///< a primary until told not to serve
    quint32 instanceNumber = 0;
    QStringList appData;
    std::unique_ptr<InstanceServer> server;
    std::unique_ptr<InstanceClient> client;

private:
    enum class Search { Found, NotFound, Failed };

    QString genBlockServerName() const;
    QStringList names() const;
    bool lock();
    Search findPrimary(Record record);
    bool becomePrimary();
    bool startPrimary(QString const& name);
    void startSecondary(QString const& name);
    bool waitForConsistentBlock();
    bool isAnswered(QString const& name) const;
    bool isPerUser() const { return options & SingleApplication::PerUser; }

    SingleApplication* q;
    SingleApplication::Modes options;
    QString blockServerName;
    RuntimeFolder folder;
    SharedBlock memory;
};
