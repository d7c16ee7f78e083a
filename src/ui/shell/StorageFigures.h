#pragma once

#include "app/AppViewModel.h"
#include "ui/design/TidloTheme.h"

#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// A category and what the last scan found of it.
struct CategoryFigure
{
    Q_GADGET
    QML_VALUE_TYPE(categoryFigure)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString subtitle MEMBER subtitle)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(tidlo::TidloTheme::Hue hue MEMBER hue)
    Q_PROPERTY(QString bytesText MEMBER bytesText)
    Q_PROPERTY(bool selected MEMBER selected)

public:
    QString title;
    QString subtitle;
    QString symbol;
    TidloTheme::Hue hue = TidloTheme::Hue::Blue;
    QString bytesText;
    bool selected = false; ///< Its card is highlighted.

    bool operator==(const CategoryFigure &) const = default;
};

/// What the sidebar shows of the disk and the last scan. Main thread.
class StorageFigures : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It is made with the state that it shows.")
    Q_PROPERTY(QString diskStatus READ diskStatus NOTIFY totalsChanged)
    Q_PROPERTY(double usedShare READ usedShare NOTIFY totalsChanged)
    Q_PROPERTY(QString usedText READ usedText NOTIFY totalsChanged)
    Q_PROPERTY(double recoverableShare READ recoverableShare NOTIFY totalsChanged)
    Q_PROPERTY(QString recoverableText READ recoverableText NOTIFY totalsChanged)
    Q_PROPERTY(QList<tidlo::CategoryFigure> categories READ categories NOTIFY categoriesChanged)

public:
    /// \a shown must outlive it.
    explicit StorageFigures(AppViewModel &shown, QObject *parent = nullptr);

    QString diskStatus() const; ///< "Ready" as long as the disk's figures are unknown.
    double usedShare() const;
    QString usedText() const;
    double recoverableShare() const;
    QString recoverableText() const;
    QList<CategoryFigure> categories() const { return figures; }

Q_SIGNALS:
    void totalsChanged();
    void categoriesChanged(); ///< At least one of the figures has changed.

private:
    void updateCategories();

    AppViewModel &app;
    QList<CategoryFigure> figures;
};

} // namespace tidlo
