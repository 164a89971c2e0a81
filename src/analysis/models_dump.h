#pragma once
// The project's models as data, for a front-end or a scenario to show what the scans know.
#include <nlohmann/json.hpp>

#include "analysis/project_models.h"

namespace quillet::analysis {

// {"procs": [...], "vars": [...], "consts": [...], "enums": {"eSize": ["Small", ...]},
//  "types": {...}, "classes": [...], "stdModules": {"basMain": 1234}, "references": [...],
//  "knownExpressions": {"DAO.Recordset": [...]}, "library": [...]}, names in UTF-8.
nlohmann::ordered_json ModelsDescribe(const ProjectModels& models);

}  // namespace quillet::analysis
