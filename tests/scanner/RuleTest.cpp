#include "scanner/RuleTest.h"

namespace tidlo {

RuleTest::RuleTest()
{
    chmod(home.path().constData(), 0755); // Undoes withoutAccessTo().
}

RuleTest::~RuleTest() = default;

} // namespace tidlo
