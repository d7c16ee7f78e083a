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

void Navigation::setApp(AppViewModel *app)
{
    if (app == source)
        return;
    if (source)
        source->disconnect(this);
    source = app;
    if (source) {
        connect(source, &AppViewModel::sectionChanged, this, &Navigation::changed);
        connect(source, &AppViewModel::phaseChanged, this, &Navigation::changed);
    }
    Q_EMIT appChanged();
    Q_EMIT changed();
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
    const AppSection section = source ? source->section() : AppSection::scan;
    return static_cast<int>(std::ranges::find(rows, section, &RailRow::section) - rows.begin());
}

Navigation::Screen Navigation::screen() const
{
    const Screen screen = rows[static_cast<size_t>(activeItem())].screen;
    const bool isScanning = source && source->phase() == ScanPhase::scanning;
    return screen == Screen::Landing && isScanning ? Screen::Scanning : screen;
}

void Navigation::press(int item)
{
    if (!source || item < 0 || item >= static_cast<int>(rows.size()))
        return;
    source->openSection(rows[static_cast<size_t>(item)].section);
}

} // namespace tidlo
