#ifndef ZELMORA_TESTS_SUPPORT_TOOLKITMESSAGES_H
#define ZELMORA_TESTS_SUPPORT_TOOLKITMESSAGES_H

#include <QMutex>
#include <QMutexLocker>
#include <QStringList>

/// As long as it lives, keeps what the toolkit has to say, which without a test around it would go to standard error.
/// One at a time.
class ToolkitMessages {
public:
    ToolkitMessages()
        : previous(qInstallMessageHandler(keep))
    {
        texts.clear();
    }

    ~ToolkitMessages() { qInstallMessageHandler(previous); }

    ToolkitMessages(const ToolkitMessages&) = delete;
    ToolkitMessages& operator=(const ToolkitMessages&) = delete;

    static QStringList all()
    {
        const QMutexLocker locker(&mutex);
        return texts;
    }

private:
    static void keep(QtMsgType, const QMessageLogContext&, const QString& text)
    {
        const QMutexLocker locker(&mutex);
        texts += text;
    }

    static inline QMutex mutex;
    static inline QStringList texts;
    const QtMessageHandler previous;
};

#endif
