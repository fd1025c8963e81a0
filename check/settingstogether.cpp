#include "check/settingstogether.h"

#include "check/placedsettings.h"
#include "check/settingssyntax.h"
#include "config/translation.h"
#include "print/rowlayout.h"
#include "toolkit/eightbit.h"
#include "toolkit/literals.h"
#include "vocabulary/settings.h"

#include <QDir>
#include <QFile>
#include <QObject>
#include <QTranslator>

using toolkit::TextPlace;
using toolkit::operator""_L1;

namespace check {

namespace {

/// The rows of a document that leave their description the least.
struct Columns {
    QLatin1String group;
    QLatin1String layout; ///< as print/rowlayout.h has it
    vocabulary::Table<QLatin1String> keys; ///< of the widths of the others
};

constexpr QLatin1String paperWidth = "paperWidth"_L1;
constexpr QLatin1String quantityWidth = "quantityFieldWidth"_L1;
constexpr QLatin1String priceWidth = "priceFieldWidth"_L1;
constexpr QLatin1String totalWidth = "totalPriceFieldWidth"_L1;

constexpr QLatin1String quantityAlone[] = {quantityWidth};
constexpr QLatin1String priceAlone[] = {priceWidth};
constexpr QLatin1String allThree[] = {quantityWidth, priceWidth, totalWidth};

// clang-format off
constexpr Columns columnTable[] = {
    {"doc"_L1, "qd"_L1, quantityAlone},
    {"prefiscaldoc"_L1, "qdpt"_L1, allThree},
    {"receiptdoc"_L1, "qxdpt"_L1, allThree},
    {"invoicedoc"_L1, "qdpt"_L1, allThree},
    {"deliverydoc"_L1, "qd"_L1, quantityAlone},
    {"reportdoc"_L1, "date-amount-type"_L1, priceAlone}, // a statement of account
    {"solddoc"_L1, "qxdpt"_L1, allThree},
};
// clang-format on

class TogetherCheck {
public:
    TogetherCheck(const PlacedSettings& settings, Findings& findings)
        : settings(settings)
        , findings(findings)
    {
    }

    void checkColumns()
    {
        for (const Columns& columns : columnTable)
            checkColumns(columns);
    }

    void checkCatalogue()
    {
        const std::optional<PlacedSetting> directory = find("language"_L1, "basedir"_L1);
        const std::optional<PlacedSetting> file = find("language"_L1, "file"_L1);
        if (!directory && !file)
            return;
        const QString directoryText = directory ? directory->value : QString();
        const QString fileText = file ? file->value : QString();
        const QString path = cataloguePath(directoryText, fileText);
        const TextPlace place = file ? file->place : directory->place;
        QTranslator translator;
        if (!loadTranslation(translator, directoryText, fileText))
            add(Code::CatalogueMissing, place,
                QObject::tr("The translation %1 cannot be loaded: the labels stay English.").arg(excerpt(path)));
        if (QDir::isRelativePath(path))
            add(Code::RelativeCatalogue, place,
                QObject::tr("The translation %1 is found only by programs that are started in the right folder: write "
                            "the whole path.")
                    .arg(excerpt(path)));
    }

    void checkPassword(const QString& path)
    {
        const std::optional<PlacedSetting> password = find("db"_L1, "password"_L1);
        const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
        if (password && !path.isEmpty() && (QFile::permissions(path) & others))
            add(Code::PasswordReadable, password->place,
                QObject::tr("Other users of this machine may read the password: take the right to read the file from "
                            "them (chmod 600)."));
    }

private:
    /// As the programs find it.
    std::optional<PlacedSetting> find(QLatin1String group, QLatin1String key) const
    {
        const vocabulary::SettingGroup& meaning = *vocabulary::findGroup(group);
        std::optional<PlacedSetting> found = settings.find(keyOf(meaning, *findSetting(meaning, key)));
        if (found)
            found->value = toolkit::eightBit(found->value);
        return found;
    }

    /// As the print program takes it.
    int width(QLatin1String group, QLatin1String key) const
    {
        const vocabulary::Setting* const meaning = findSetting(*vocabulary::findGroup(group), key);
        const std::optional<PlacedSetting> found = find(group, key);
        return numberTaken(*meaning, found ? found->value : QString());
    }

    rowlayout::Widths widthsOf(QLatin1String group) const
    {
        return {width(group, paperWidth), width(group, quantityWidth), width(group, priceWidth),
                width(group, totalWidth)};
    }

    void checkColumns(const Columns& columns)
    {
        const rowlayout::Widths widths = widthsOf(columns.group);
        const int left = rowlayout::descriptionWidth(columns.layout, widths);
        if (left > 0)
            return;
        const QString sum = sumText(columns, widths.paper - left, widths.paper);
        const QString text = left == 0
            ? QObject::tr("The columns take the whole paper (%1): no description is printed.")
            : QObject::tr("The columns are wider than the paper (%1): the lines grow past it.");
        add(Code::ColumnsWiderThanPaper, placeOf(columns), text.arg(sum));
    }

    /// Such as "3 + 10 + 10 + 3 = 26 of 24 characters"; the last term is what stands between the columns.
    QString sumText(const Columns& columns, int sum, int paper) const
    {
        QStringList terms;
        int between = sum;
        for (const QLatin1String key : columns.keys) {
            const int itsWidth = width(columns.group, key);
            terms += QString::number(itsWidth);
            between -= itsWidth;
        }
        terms += QString::number(between);
        return QObject::tr("%1 = %2 of %3 characters")
            .arg(terms.join(QStringLiteral(" + ")), QString::number(sum), QString::number(paper));
    }

    /// The paper's width, or, where that is not set, the first column that is.
    TextPlace placeOf(const Columns& columns) const
    {
        if (const std::optional<PlacedSetting> found = find(columns.group, paperWidth))
            return found->place;
        for (const QLatin1String key : columns.keys) {
            if (const std::optional<PlacedSetting> found = find(columns.group, key))
                return found->place;
        }
        return TextPlace(); // never: the paper has room for columns of no width
    }

    void add(Code code, TextPlace place, const QString& text) { findings += finding(code, place, text); }

    const PlacedSettings& settings;
    Findings& findings;
};

} // namespace

void checkTogether(const PlacedSettings& settings, const QString& path, Findings& findings)
{
    TogetherCheck check(settings, findings);
    check.checkColumns();
    check.checkCatalogue();
    check.checkPassword(path);
}

} // namespace check
