#include "scanner/RuleTest.h"

namespace tidlo {

RuleTest::RuleTest()
{
    chmod(home.path().constData(), 0755); // For withoutAccessTo.
}

RuleTest::~RuleTest() = default;

} // namespace tidlo
