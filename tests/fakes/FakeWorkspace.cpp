#include "fakes/FakeWorkspace.h"

namespace tidlo {

FakeWorkspace::FakeWorkspace()
{
    ON_CALL(*this, openApplication).WillByDefault([this](const FilePath &, Opened told) { opened = std::move(told); });
}

FakeWorkspace::~FakeWorkspace() = default;

} // namespace tidlo
