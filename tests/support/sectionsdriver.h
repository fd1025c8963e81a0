#ifndef ZELMORA_TESTS_SUPPORT_SECTIONSDRIVER_H
#define ZELMORA_TESTS_SUPPORT_SECTIONSDRIVER_H

#include "support/recordingdriver.h"

/// Notes for which elements the shared sections are asked.
class SectionsDriver : public RecordingDriver {
public:
    QStringList askedSections;

    bool printSections(const QString& qName, const QXmlAttributes& atts) override
    {
        askedSections += qName;
        return RecordingDriver::printSections(qName, atts);
    }
};

#endif
