#pragma once

namespace tidlo {

/// Lets the calling thread stand back behind those that a person waits for, such as the one that draws, where there is
/// not room for all. It stays so, and asking again changes nothing. Where the system passes this on to threads that it
/// starts, they stand back as well. If the system refuses, nothing changes.
void standBack();

} // namespace tidlo
