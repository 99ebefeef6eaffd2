#pragma once

#include <QString>

class RuntimeFolder;
struct InstanceBlock;

/// The block of shared memory of one name: a file of 152 bytes in the folder, mapped into every start that is attached.
/// Whoever lets it go last removes it, and what killed processes have left is seen by that nobody is attached. All
/// functions are called under the lock of the folder.
///
/// A file and no memory of the System V kind, whose key is 16 bits of a number of a file: any other program may have
/// taken that key, and what a killed process leaves under it stays until the machine is started again.
class SharedBlock {
public:
    enum class Result {
        Attached,
        Missing, ///< There is none. What a crash had left is gone.
        Foreign, ///< The name is taken by something that is not the block of this user's program.
        Failed,  ///< The system refuses, for a reason that need not last; `errno` tells which.
    };

    SharedBlock() = default;
    ~SharedBlock();
    SharedBlock(SharedBlock const&) = delete;
    SharedBlock& operator=(SharedBlock const&) = delete;

    /// Attaches to the block that other starts are attached to.
    Result attach(RuntimeFolder const& folder, QString const& name);
    /// The same, and makes and initialises the block if there is none.
    Result create(RuntimeFolder const& folder, QString const& name);
    /// Lets the block go.
    void release(RuntimeFolder const& folder);

    bool isAttached() const { return mapping != nullptr; }
    InstanceBlock* data() const { return mapping; }

private:
    Result take(RuntimeFolder const& folder);
    Result takeFree();
    Result map();
    void close();

    InstanceBlock* mapping = nullptr;
    QByteArray fileName;
    int file = -1;
};
