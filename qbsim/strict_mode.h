// Strict mode: a message is refused, as QuickBooks refuses it, when it is not valid against
// the qbXML schema. A few deviations that the library makes by design are tolerated; each
// is listed, with its reason, in strict_mode.cpp.
#pragma once

#include <string>

#include <pugixml.hpp>

namespace tessaron::qbsim {

// The validator's first message about the message, after the tolerated deviations are set
// aside; an empty text when it is valid. `schemaDir` empty: the default schema folder.
std::string SchemaProblem(const pugi::xml_document& message, const std::string& schemaDir);

}  // namespace tessaron::qbsim
