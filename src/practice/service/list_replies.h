#pragma once
#include <string>
#include <vector>

#include "base/result.h"
#include "practice/service/list_query.h"
#include "practice/service/list_rows.h"

namespace quill::practice {

/// The answer with a list: the rows that the query wants, in its order, and of these the batch that it wants.
/// Without a "top" it ends with a link to the next batch where there is one. A query that names a field which
/// the rows do not have is refused.
WebAnswer ListAnswer(const ServiceAddresses& addresses, const WebRequest& request, const ListQuery& query,
                     std::vector<ListRow> rows);

/// An answer with JSON as it stands, without blanks.
WebAnswer JsonAnswer(const nlohmann::ordered_json& json);

}  // namespace quill::practice
