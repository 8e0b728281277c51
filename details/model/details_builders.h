// The builders: from the answer to a detail request to the groups of rows that the pane shows.
//
// Each is a table of fields, walked in order; groups keep the order in which they are finished,
// and one without rows is dropped. An answer without any known field gives one group without rows,
// "No Parameters are Modified". Nothing in an answer is an error: what is missing or unreadable
// gives no row, or "NA".
#pragma once

#include "details/model/field_rows.h"

namespace mc {

DetailGroups BuildUserDetails(const FieldReader& answer);

DetailGroups BuildClientDetails(const FieldReader& answer);

// `mayModify`: the checker holds the modify right, and so the limits can be edited.
DetailGroups BuildLimitsDetails(const FieldReader& answer, bool mayModify);

}  // namespace mc
