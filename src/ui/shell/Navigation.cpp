#include "ui/shell/Navigation.h"

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

struct RailRow
{
    QStringView symbol;
    QStringView title;
    AppSection section;
    Navigation::Screen screen;
};

constexpr std::array rows{
    RailRow{u"house", u"Scan", AppSection::scan, Navigation::Screen::Landing},
    RailRow{u"chart.pie", u"Results", AppSection::results, Navigation::Screen::Results},
    RailRow{u"doc.text.magnifyingglass", u"Report", AppSection::report, Navigation::Screen::Report},
    RailRow{u"gearshape", u"Settings", AppSection::settings, Navigation::Screen::Settings},
};

} // namespace

Navigation::Navigation(AppViewModel &shown, QObject *parent)
    : QObject(parent)
    , app(shown)
{
    connect(&app, &AppViewModel::sectionChanged, this, &Navigation::changed);
    connect(&app, &AppViewModel::phaseChanged, this, &Navigation::changed);
}

QList<RailItem> Navigation::rail()
{
    QList<RailItem> items;
    for (const RailRow &row : rows)
        items.append({.symbol = row.symbol.toString(), .title = row.title.toString()});
    return items;
}

int Navigation::activeItem() const
{
    return static_cast<int>(std::ranges::find(rows, app.section(), &RailRow::section) - rows.begin());
}

Navigation::Screen Navigation::screen() const
{
    const Screen screen = rows[static_cast<size_t>(activeItem())].screen;
    const bool isScanning = app.phase() == ScanPhase::scanning;
    return screen == Screen::Landing && isScanning ? Screen::Scanning : screen;
}

void Navigation::press(int item)
{
    if (item >= 0 && item < static_cast<int>(rows.size()))
        app.openSection(rows[static_cast<size_t>(item)].section);
}

} // namespace tidlo
