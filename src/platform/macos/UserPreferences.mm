#include "platform/FolderLock.h"
#include "platform/HomeFolder.h"
#include "platform/PreferenceStore.h"

#import <Foundation/Foundation.h>

namespace tidlo {

namespace {

/// The system stores them under the bundle's identifier; it does not notice direct changes of its file.
class MacPreferences final : public PreferenceStore
{
public:
    QVariant value(QLatin1StringView key) const override
    {
        const id found = [defaults objectForKey:name(key)];
        if ([found isKindOfClass:NSString.class])
            return QString::fromNSString(found);
        if ([found isKindOfClass:NSNumber.class])
            return static_cast<bool>([found boolValue]);
        return {};
    }

    void set(QLatin1StringView key, const QVariant &value) override
    {
        if (!value.isValid())
            [defaults removeObjectForKey:name(key)];
        else if (value.typeId() == QMetaType::Bool)
            [defaults setBool:value.toBool() forKey:name(key)];
        else
            [defaults setObject:value.toString().toNSString() forKey:name(key)];
    }

    std::optional<QVariant> kept(QLatin1StringView key) override
    {
        const bool isThere = [defaults objectForKey:name(key)] != nil;
        const QVariant found = value(key);
        return isThere && !found.isValid() ? std::nullopt : std::optional(found);
    }

    bool change(QLatin1StringView key, const std::function<QVariant(const QVariant &)> &changed) override
    {
        const FolderLock lock(homeFolder());
        const std::optional<QVariant> former = kept(key);
        if (!lock.isHeld() || !former)
            return false;
        set(key, changed(*former));
        return [defaults synchronize];
    }

private:
    static NSString *name(QLatin1StringView key) { return QString(key).toNSString(); }

    NSUserDefaults *const defaults = NSUserDefaults.standardUserDefaults;
};

} // namespace

std::unique_ptr<PreferenceStore> preferencesOfUser()
{
    return std::make_unique<MacPreferences>();
}

} // namespace tidlo
