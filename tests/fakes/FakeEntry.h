#pragma once

#include "platform/DeepEnumeration.h"

namespace tidlo {

/// An entry to show to a visitor, with any attributes; remembers which siblings were asked for.
class FakeEntry final : public EnumeratedEntry
{
public:
    explicit FakeEntry(FilePath name, FileAttributes attributes = {.kind = FileKind::directory},
                       QList<FilePath> siblings = {})
        : entryName(std::move(name))
        , entryAttributes(attributes)
        , siblings(std::move(siblings))
    {}

    QByteArrayView name() const override { return entryName; }
    const FileAttributes &attributes() const override { return entryAttributes; }
    bool siblingExists(const char *sibling) const override
    {
        asked.append(sibling);
        return siblings.contains(sibling);
    }

    const QList<FilePath> &askedFor() const { return asked; }

private:
    FilePath entryName;
    FileAttributes entryAttributes;
    QList<FilePath> siblings;
    mutable QList<FilePath> asked;
};

} // namespace tidlo
