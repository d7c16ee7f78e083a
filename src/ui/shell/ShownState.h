#pragma once

#include "ui/screens/ContentViews.h"
#include "ui/shell/Navigation.h"
#include "ui/shell/StorageFigures.h"

namespace tidlo {

/// The part of the state that the window shows, one object for each view. Main thread.
class ShownState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, and it is given.")
    Q_PROPERTY(tidlo::AppViewModel *app READ app CONSTANT)
    Q_PROPERTY(tidlo::Preferences *preferences READ preferences CONSTANT)
    Q_PROPERTY(tidlo::Removal *removal READ removal CONSTANT)
    Q_PROPERTY(tidlo::KeptPaths *keptPaths READ keptPaths CONSTANT)
    Q_PROPERTY(tidlo::Navigation *navigation READ navigation CONSTANT)
    Q_PROPERTY(tidlo::StorageFigures *storage READ storage CONSTANT)
    Q_PROPERTY(tidlo::ScanProgress *progress READ progress CONSTANT)
    Q_PROPERTY(tidlo::Findings *findings READ findings CONSTANT)
    Q_PROPERTY(tidlo::Disclosure *disclosure READ disclosure CONSTANT)
    Q_PROPERTY(tidlo::FoundItems *foundItems READ foundItems CONSTANT)
    Q_PROPERTY(tidlo::ShownReport *report READ report CONSTANT)
    Q_PROPERTY(tidlo::StayedItems *stayedItems READ stayedItems CONSTANT)

public:
    /// \a app must outlive it.
    explicit ShownState(AppViewModel &app, QObject *parent = nullptr)
        : QObject(parent)
        , owner(app)
    {}

    AppViewModel *app() { return &owner; }
    Preferences *preferences() { return &stored; }
    Removal *removal() { return &wayOut; }
    KeptPaths *keptPaths() { return &kept; }
    Navigation *navigation() { return &shownSection; }
    StorageFigures *storage() { return &figures; }
    ScanProgress *progress() { return &scan; }
    Findings *findings() { return &found; }
    Disclosure *disclosure() { return &disclosed; }
    FoundItems *foundItems() { return &itemsFound; }
    ShownReport *report() { return &shownReport; }
    StayedItems *stayedItems() { return &itemsThatStayed; }

private:
    AppViewModel &owner;
    Preferences stored{owner.defaults()};
    Removal wayOut{owner};
    KeptPaths kept{owner};
    Navigation shownSection{owner};
    StorageFigures figures{owner};
    ScanProgress scan{owner};
    Findings found{owner};
    Disclosure disclosed{owner};
    FoundItems itemsFound{owner};
    ShownReport shownReport{owner};
    StayedItems itemsThatStayed{owner};
};

} // namespace tidlo
