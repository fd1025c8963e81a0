#ifndef ZELMORA_TESTS_CHECK_JOBFINDINGS_H
#define ZELMORA_TESTS_CHECK_JOBFINDINGS_H

#include "check/jobcheck.h"
#include "check/placedsettings.h"
#include "config/zmconfiguration.h"

#include <QBuffer>
#include <QStringList>

// Jobs checked, and what is found of them in short.

inline check::Findings findingsOf(const QByteArray& job, const QByteArray& settings, check::JobTrace* trace = nullptr)
{
    const QString format = QStringLiteral("cfg");
    ZMConfiguration store(settings, QStringLiteral("till.conf"), format);
    const check::PlacedSettings places = check::PlacedSettings::of(settings, format);
    QBuffer device;
    device.setData(job);
    return check::checkJob(device, {store, &places, QStringLiteral("till.conf")}, trace);
}

/// "2:5 warning not-a-number".
inline QString inShort(const check::Finding& finding)
{
    return QStringLiteral("%1:%2 %3 %4")
        .arg(finding.place.line)
        .arg(finding.place.column)
        .arg(check::word(finding.severity), check::entry(finding.code).name);
}

inline QStringList inShort(const check::Findings& findings)
{
    QStringList texts;
    for (const check::Finding& finding : findings)
        texts += inShort(finding);
    return texts;
}

/// A job of one method, whose elements @p content begin on its second line.
inline QByteArray jobOf(const QByteArray& method, const QByteArray& content)
{
    return "<job><method name='" + method + "'/>\n" + content + "\n</job>";
}

/// Settings with which each kind of document prints rows on paper of 32 characters, and @p more in each group.
inline QByteArray settingsWith(const QByteArray& more)
{
    QByteArray settings = "zelmora: {\n";
    for (const QByteArray group :
         {"doc", "prefiscaldoc", "fiscaldoc", "receiptdoc", "invoicedoc", "deliverydoc", "reportdoc", "solddoc"})
        settings += group + ": { paperWidth = 32; quantityFieldWidth = 3; priceFieldWidth = 6;"
            + " totalPriceFieldWidth = 8; " + more + " };\n";
    return settings + "};";
}

#endif
