#include "platform/MachineIdentity.h"

#include <CoreFoundation/CoreFoundation.h>
#include <IOKit/IOKitLib.h>

namespace tidlo {

std::optional<QString> machineIdentity()
{
    const io_service_t service =
        IOServiceGetMatchingService(MACH_PORT_NULL, IOServiceMatching("IOPlatformExpertDevice"));
    if (service == IO_OBJECT_NULL)
        return std::nullopt;
    const CFTypeRef property =
        IORegistryEntryCreateCFProperty(service, CFSTR("IOPlatformUUID"), kCFAllocatorDefault, 0);
    IOObjectRelease(service);
    if (property == nullptr)
        return std::nullopt;
    std::optional<QString> identity;
    if (CFGetTypeID(property) == CFStringGetTypeID())
        identity = QString::fromCFString(static_cast<CFStringRef>(property));
    CFRelease(property);
    return identity;
}

} // namespace tidlo
