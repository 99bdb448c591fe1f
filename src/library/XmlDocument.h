#pragma once

// The type in which the library hands out a settings document: owned by the caller, null
// when there is no document.

#include <memory>
#include <pugixml.hpp>

namespace bravcpl5 {

using XmlDocumentPtr = std::unique_ptr<pugi::xml_document>;

} // namespace bravcpl5
