// Changes one of the user's switches again and again, as the window does: preference_driver
// tidloTheme|tidlo.explanations

#include "platform/UserDefaults.h"

#include <array>
#include <cstdlib>

int main(int count, char **arguments)
{
    using namespace tidlo;
    if (count != 2)
        return EXIT_FAILURE;
    const QLatin1StringView key(arguments[1]);
    const std::array values = key == UserDefaults::theme
                                  ? std::array{QVariant(QStringLiteral("light")), QVariant(QStringLiteral("dark"))}
                                  : std::array{QVariant(false), QVariant(true)};
    UserDefaults defaults;
    while (true) {
        for (const QVariant &value : values)
            defaults.set(key, value);
    }
}
