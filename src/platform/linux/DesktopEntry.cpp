#include "platform/linux/DesktopEntry.h"

namespace tidlo {

namespace {

/// As one argument of a command line: quoted, and with "%" doubled, since it begins a field code.
QByteArray asArgument(const FilePath &path)
{
    QByteArray argument;
    for (const char byte : path) {
        if (QByteArrayView("\"`$\\").contains(byte))
            argument += '\\';
        if (byte == '%')
            argument += '%';
        argument += byte;
    }
    return '"' + argument + '"';
}

/// As the value of a key.
QByteArray asValue(QByteArray text)
{
    return text.replace('\\', "\\\\").replace('\n', "\\n").replace('\t', "\\t").replace('\r', "\\r");
}

} // namespace

QByteArray desktopEntry(const FilePath &executable, const QByteArray &icon)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Tidlo\n"
           "GenericName=Storage Cleaner\n"
           "Comment=Finds files that can be removed, and moves them to the Trash\n"
           "Exec=" +
           asValue(asArgument(executable)) +
           "\n"
           "TryExec=" +
           asValue(executable) +
           "\n"
           "Icon=" +
           icon +
           "\n"
           "Terminal=false\n"
           "Categories=Utility;FileTools;\n"
           "Keywords=disk;space;cleanup;trash;\n"
           "StartupWMClass=" +
           icon + "\n";
}

} // namespace tidlo
