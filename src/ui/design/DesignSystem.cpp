#include "ui/design/DesignSystem.h"

void qml_register_types_Tidlo_Design(); // Written by the build; in a static library nothing else calls it.

namespace tidlo {

void useDesignSystem()
{
    qml_register_types_Tidlo_Design();
    TidloType::loadFonts();
}

} // namespace tidlo
