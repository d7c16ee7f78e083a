#include "scanner/RuleTest.h"

RuleTest::RuleTest()
{
    chmod(home.path().constData(), 0755); // For withoutAccessTo.
}

RuleTest::~RuleTest() = default;
