#pragma once

#include "app/AppViewModel.h"

namespace tidlo {

/// A state owner that can be put directly into any state.
class OpenModel final : public AppViewModel
{
public:
    using AppViewModel::AppViewModel;

    using AppViewModel::setAiSummary;
    using AppViewModel::setCandidates;
    using AppViewModel::setCleanupReport;
    using AppViewModel::setIsGeneratingAI;
    using AppViewModel::setMoveToApplicationsErrorMessage;
    using AppViewModel::setPhase;
    using AppViewModel::setScanLabel;
    using AppViewModel::setScanProgress;
    using AppViewModel::setSection;
    using AppViewModel::setSent;
    using AppViewModel::setSetupStep;
    using AppViewModel::setTotals;
};

} // namespace tidlo
