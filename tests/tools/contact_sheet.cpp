// contact_sheet <folder>: draws every symbol at the sizes and weights it is used in, dark and light, at one and at two
// pixels a point, into <folder>/symbols-<scheme>@<ratio>x.png. For review by a person.

#include "ui/design/Symbol.h"
#include "ui/design/SymbolDrawing.h"
#include "ui/design/TidloType.h"

#include <QGuiApplication>
#include <QPainter>

#include <array>

namespace tidlo {

namespace {

struct Scheme
{
    const char *name;
    QColor background;
    QColor ink;
};

struct Look
{
    double size;
    int weight;
    int width; ///< Of its column.
};

constexpr std::array looks{
    Look{11, QFont::Normal, 24}, Look{11, QFont::Bold, 24}, Look{16, QFont::Normal, 32}, Look{16, QFont::Bold, 32},
    Look{24, QFont::Normal, 42}, Look{24, QFont::Bold, 42}, Look{40, QFont::Normal, 62}, Look{40, QFont::Bold, 62},
};

constexpr int columns = 2;
constexpr int rowHeight = 56;
constexpr int nameWidth = 180;
constexpr int columnWidth = nameWidth + 2 * (24 + 32 + 42 + 62) + 20;

void drawSymbol(QPainter &painter, const QString &name, const Look &look, QPointF centre, const QColor &ink)
{
    Symbol symbol;
    symbol.setName(name);
    symbol.setFontSize(look.size);
    symbol.setWeight(look.weight);
    symbol.setColor(ink);
    const QImage picture = symbol.picture(painter.device()->devicePixelRatioF());
    const QSizeF half = picture.deviceIndependentSize() / 2;
    painter.drawImage(centre - QPointF(half.width(), half.height()), picture);
}

void drawRow(QPainter &painter, const QString &name, QPointF corner, const QColor &ink)
{
    painter.setPen(ink);
    painter.drawText(QRectF(corner, QSizeF(nameWidth, rowHeight)), Qt::AlignVCenter, name);
    double left = corner.x() + nameWidth;
    for (const Look &look : looks) {
        drawSymbol(painter, name, look, {left + look.width / 2.0, corner.y() + rowHeight / 2.0}, ink);
        left += look.width;
    }
}

QImage sheet(const Scheme &scheme, int ratio)
{
    const QStringList names = symbolNames();
    const int rows = static_cast<int>(names.size() + columns - 1) / columns;
    QImage image(QSize(columns * columnWidth + 20, rows * rowHeight + 20) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(scheme.background);
    QPainter painter(&image);
    painter.setFont(TidloType().small());
    for (int i = 0; i < names.size(); ++i)
        drawRow(painter, names[i], QPointF(20 + i / rows * columnWidth, 10 + i % rows * rowHeight), scheme.ink);
    return image;
}

} // namespace

} // namespace tidlo

int main(int argc, char **argv)
{
    using namespace tidlo;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2)
        return 2;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const std::array schemes{Scheme{"dark", QColor(18, 28, 31), QColor(227, 232, 234)},
                             Scheme{"light", QColor(234, 242, 244), QColor(15, 30, 33)}};
    for (const Scheme &scheme : schemes) {
        for (const int ratio : {1, 2}) {
            if (!sheet(scheme, ratio)
                     .save(QStringLiteral("%1/symbols-%2@%3x.png").arg(folder, QLatin1String(scheme.name)).arg(ratio)))
                return 1;
        }
    }
    return 0;
}
