#include "ui/screens/ContentViews.h"

void qml_register_types_Tidlo_Screens(); // Written by the build; in a static library nothing else calls it.

namespace tidlo {

void useContentViews()
{
    qml_register_types_Tidlo_Screens();
}

} // namespace tidlo
