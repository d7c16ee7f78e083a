#pragma once

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QByteArrayList>

#include <memory>

namespace tidlo {

/// A private home with something of four kinds to clean, the largest first:
///   41 KB  Rebuildable project folders               two paths
///   20 KB  WhatsApp / Chat Media & Attachments       one path, not selected
///   12 KB  User and developer caches                 one path
///    8 KB  Downloads / old installers and archives   one path
std::unique_ptr<TemporaryHome> homeToClean();

/// The paths in it that a scan selects.
QByteArrayList selectedPaths(const TemporaryHome &home);

/// Which of \a paths exist.
QByteArrayList existing(const QByteArrayList &paths);

/// The names in the home's Trash, in byte order; none if there is no Trash.
QByteArrayList trashed(const TemporaryHome &home);

} // namespace tidlo
