#pragma once

#include "model/SourceConfig.h"

#include <QList>

/// The list to store when another running program may have changed the stored one meanwhile.
///
/// `before` is the list that this program last read or wrote, `ours` what it has made of it, and
/// `theirs` what the store holds now. Sources and fields that only one side changed are kept as
/// that side left them; where both did, ours counts. A source that was removed there is gone unless
/// it was changed here; one that was removed here is gone. Sources of the same name are told apart
/// by their order.
QList<SourceConfig> mergeSources(const QList<SourceConfig> &before, const QList<SourceConfig> &ours,
                                 const QList<SourceConfig> &theirs);
