#include "ui/screens/Findings.h"

#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"
#include "ui/screens/Excerpt.h"
#include "ui/screens/Presentation.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

// A usual explanation has about 800 characters. Showing a million takes the window about 15 seconds.
constexpr qsizetype summaryShown = 4'000;

constexpr qsizetype longestPath = 200; ///< Characters of a path in an alert.

struct FilterRow
{
    Findings::Filter filter;
    std::optional<CleanupRisk> risk;
};

constexpr std::array filters{
    FilterRow{Findings::Filter::All, std::nullopt},
    FilterRow{Findings::Filter::Safe, CleanupRisk::safe},
    FilterRow{Findings::Filter::Review, CleanupRisk::review},
};

bool areTheSame(const QList<CleanupCandidate> &some, const QList<CleanupCandidate> &others)
{
    return std::ranges::equal(some, others, {}, &CleanupCandidate::id, &CleanupCandidate::id);
}

qint64 largestOf(const QList<CleanupCandidate> &candidates)
{
    qint64 largest = 1;
    for (const CleanupCandidate &candidate : candidates)
        largest = std::max(largest, candidate.bytes);
    return largest;
}

} // namespace

Findings::Findings(AppViewModel &shown, QObject *parent)
    : QAbstractListModel(parent)
    , app(shown)
{
    connect(&app, &AppViewModel::candidatesChanged, this, &Findings::updateCandidates);
    connect(&app, &AppViewModel::candidatesChanged, this, &Findings::selectionChanged);
    connect(&app, &AppViewModel::isMovingFilesChanged, this, &Findings::selectionChanged);
    connect(&app, &AppViewModel::isSparedUnknownChanged, this, &Findings::isSparedUnknownChanged);
    connect(&app, &AppViewModel::selectedFilterChanged, this, &Findings::updateRows);
    connect(&app, &AppViewModel::selectedFilterChanged, this, &Findings::filterChanged);
    connect(&app, &AppViewModel::totalsChanged, this, &Findings::headlineChanged);
    connect(&app, &AppViewModel::aiSummaryChanged, this, &Findings::summaryChanged);
    connect(&app, &AppViewModel::isGeneratingAIChanged, this, &Findings::isExplainingChanged);
    connect(&app, &AppViewModel::explanationsChanged, this, &Findings::summaryChanged);
    connect(&app, &AppViewModel::explanationsChanged, this, &Findings::isExplainingChanged);
    updateCandidates();
}

void Findings::updateCandidates()
{
    QSet<QUuid> updated;
    for (const CleanupCandidate &candidate : app.candidates())
        updated.insert(candidate.id);
    const bool areOthers = !updated.intersects(candidates);
    candidates = updated;
    updateRows();
    if (areOthers)
        Q_EMIT replaced();
}

void Findings::updateRows()
{
    const QList<CleanupCandidate> visible = app.visibleCandidates();
    maxBytes = largestOf(app.candidates());
    if (areTheSame(visible, rows)) {
        rows = visible;
        if (!rows.isEmpty())
            Q_EMIT dataChanged(index(0), index(count() - 1));
        return;
    }
    beginResetModel();
    rows = visible;
    endResetModel();
    Q_EMIT countChanged();
}

QString Findings::headline() const
{
    return QStringLiteral("AI-assisted results — %1 found").arg(byteCountText(app.totals().totalBytes));
}

QString Findings::selectionText() const
{
    return QStringLiteral("%1 selected").arg(byteCountText(app.selectedBytes()));
}

QString Findings::whatThisFrees() const
{
    const Forecast forecast = app.forecastOfSelected();
    QString text = QStringLiteral("%1 selected. Once it is in the Trash, emptying that %2.\n")
                       .arg(byteCountText(forecast.recoverable()), freedText(forecast));
    for (const QString &unfreed : unfreedTexts(forecast))
        text += unfreed + QStringLiteral(".\n");
    const UnreadFolders unread = app.unread();
    if (unread.count > 0)
        text += QStringLiteral("\nFolders that could not be read: %1\n").arg(unread.count);
    for (const UnreadFolder &folder : unread.first) {
        const Excerpt path = excerptOf(visibleText(folder.path), longestPath);
        text += path.text + (path.more > 0 ? QStringLiteral("…: ") : QStringLiteral(": ")) + folder.reason + u'\n';
    }
    return text.trimmed();
}

bool Findings::canMove() const
{
    return !app.isMovingFiles() && !app.selectedCandidates().isEmpty();
}

Findings::Filter Findings::filter() const
{
    const auto row = std::ranges::find(filters, app.selectedFilter(), &FilterRow::risk);
    return row == filters.end() ? Filter::Other : row->filter;
}

void Findings::setFilter(Filter filter)
{
    const auto row = std::ranges::find(filters, filter, &FilterRow::filter);
    if (row != filters.end())
        app.setSelectedFilter(row->risk);
}

QString Findings::wholeSummary() const
{
    return app.areExplanationsOn() ? app.aiSummary().value_or(QString()) : QString();
}

QString Findings::summary() const
{
    return visibleText(excerptOf(wholeSummary(), summaryShown).text);
}

QString Findings::summaryRest() const
{
    return restText(excerptOf(wholeSummary(), summaryShown).more,
                    QStringLiteral("Select all and copy to have the whole text."));
}

void Findings::copySummary() const
{
    QGuiApplication::clipboard()->setText(visibleText(wholeSummary()));
}

int Findings::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant Findings::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const CleanupCandidate &candidate = rows.at(index.row());
    const CategoryPresentation &category = presentationOf(candidate.category);
    const RiskPresentation &risk = presentationOf(candidate.risk);
    switch (role) {
    case TitleRole:
        return visibleText(candidate.title);
    case DetailRole:
        return visibleText(candidate.aiExplanation.value_or(candidate.detail));
    case SymbolRole:
        return category.symbol.toString();
    case SymbolHueRole:
        return static_cast<int>(category.hue);
    case RiskRole:
        return rawValue(candidate.risk);
    case RiskHueRole:
        return static_cast<int>(risk.hue);
    case BadgeHueRole:
        return static_cast<int>(risk.badgeHue);
    case SizeRole:
        return byteCountText(candidate.bytes);
    case ShareRole:
        return static_cast<double>(candidate.bytes) / static_cast<double>(maxBytes);
    case SelectedRole:
        return candidate.selected;
    case ToggleableRole:
        return candidate.risk != CleanupRisk::never;
    default:
        return {};
    }
}

QHash<int, QByteArray> Findings::roleNames() const
{
    return {
        {TitleRole, "title"}, {DetailRole, "detail"},   {SymbolRole, "symbol"},         {SymbolHueRole, "symbolHue"},
        {RiskRole, "risk"},   {RiskHueRole, "riskHue"}, {BadgeHueRole, "badgeHue"},     {SizeRole, "sizeText"},
        {ShareRole, "share"}, {SelectedRole, "ticked"}, {ToggleableRole, "toggleable"},
    };
}

void Findings::toggle(int row)
{
    if (row >= 0 && row < count())
        app.toggleCandidate(CleanupCandidate(rows.at(row))); // A copy: the toggle changes the rows.
}

QUuid Findings::candidateAt(int row) const
{
    return row >= 0 && row < count() ? rows.at(row).id : QUuid();
}

} // namespace tidlo
