#ifndef ZELMORA_TESTS_SUPPORT_MARKEDTEXTS_H
#define ZELMORA_TESTS_SUPPORT_MARKEDTEXTS_H

#include <QCoreApplication>
#include <QTranslator>

/// As long as it lives, each text that is looked up as the catalogue has it (context "QObject", no comment)
/// comes back between angle brackets.
class MarkedTexts : public QTranslator {
public:
    MarkedTexts() { QCoreApplication::installTranslator(this); }
    ~MarkedTexts() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* sourceText, const char* comment, int) const override
    {
        if (qstrcmp(context, "QObject") != 0 || qstrlen(comment) != 0)
            return QString();
        return QLatin1Char('<') + QString::fromUtf8(sourceText) + QLatin1Char('>');
    }
};

#endif
