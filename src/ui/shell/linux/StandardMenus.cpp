#include "ui/shell/StandardMenus.h"

namespace tidlo {

void addStandardMenus() {}

} // namespace tidlo
