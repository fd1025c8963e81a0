#ifndef ZELMORA_TOOLKIT_CHILDPROCESS_H
#define ZELMORA_TOOLKIT_CHILDPROCESS_H

#include <QProcess>

#include <functional>

namespace toolkit {

/// A process that does something of its own before it becomes the other program: Qt 5 takes an override for that, Qt 6
/// a function.
class ChildProcess : public QProcess {
public:
    /// @p prepare runs in the child between fork and exec, each time it is started: system calls only.
    explicit ChildProcess(std::function<void()> prepare);

#if QT_VERSION_MAJOR < 6
protected:
    void setupChildProcess() override
    {
        prepare();
    }

private:
    const std::function<void()> prepare;
#endif
};

} // namespace toolkit

#endif
