#include "qbsim/schema_validator.h"

#include <cstdarg>
#include <cstdlib>
#include <filesystem>
#include <mutex>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include "tessaron/platform/error.h"

#ifndef TESSARON_DEFAULT_SCHEMA_DIR
#define TESSARON_DEFAULT_SCHEMA_DIR "/usr/share/tessaron/qbxml-schema"
#endif
// Where an installed package looks when the folder of the build is gone.
#ifndef TESSARON_INSTALLED_SCHEMA_DIR
#define TESSARON_INSTALLED_SCHEMA_DIR "/usr/share/tessaron/qbxml-schema"
#endif

namespace tessaron::qbsim {
namespace {

void CollectFirst(void* ctx, const char* fmt, ...) {
  auto* out = static_cast<std::string*>(ctx);
  if (!out->empty()) return;
  char buf[1024];
  va_list ap;
  va_start(ap, fmt);
  vsnprintf(buf, sizeof buf, fmt, ap);
  va_end(ap);
  *out = buf;
  while (!out->empty() && (out->back() == '\n' || out->back() == ' ')) out->pop_back();
}

}  // namespace

struct SchemaValidator::Impl {
  xmlSchemaPtr schema = nullptr;
  // Made at the first check and kept; a context serves one check at a time.
  xmlSchemaValidCtxtPtr context = nullptr;
  std::mutex mutex;
};

SchemaValidator::SchemaValidator(const std::string& schemaDir) : impl_(std::make_unique<Impl>()) {
  std::string path = schemaDir + "/qbxmlops120.xsd";
  xmlSchemaParserCtxtPtr pctx = xmlSchemaNewParserCtxt(path.c_str());
  std::string error;
  xmlSchemaSetParserErrors(pctx, CollectFirst, CollectFirst, &error);
  impl_->schema = pctx ? xmlSchemaParse(pctx) : nullptr;
  if (pctx) xmlSchemaFreeParserCtxt(pctx);
  if (!impl_->schema)
    throw Error(platform_error::kFileNotFound, "qbsim",
                "The qbXML schema could not be loaded from " + path + (error.empty() ? "" : ": " + error));
}

SchemaValidator::~SchemaValidator() {
  if (impl_->context) xmlSchemaFreeValidCtxt(impl_->context);
  if (impl_->schema) xmlSchemaFree(impl_->schema);
}

std::string SchemaValidator::DefaultSchemaDir() {
  const char* env = std::getenv("TESSARON_QBXML_SCHEMA_DIR");
  if (env && *env) return env;
  std::error_code ec;
  if (std::filesystem::exists(TESSARON_DEFAULT_SCHEMA_DIR "/qbxmlops120.xsd", ec)) return TESSARON_DEFAULT_SCHEMA_DIR;
  return TESSARON_INSTALLED_SCHEMA_DIR;
}

SchemaValidator& SchemaValidator::Default() {
  static SchemaValidator validator(DefaultSchemaDir());
  return validator;
}

std::string SchemaValidator::StripPrologue(std::string_view m) {
  std::string out;
  out.reserve(m.size());
  size_t pos = 0;
  while (pos < m.size()) {
    size_t lt = m.find('<', pos);
    if (lt == std::string_view::npos) {
      out.append(m.substr(pos));
      break;
    }
    out.append(m.substr(pos, lt - pos));
    if (m.compare(lt, 9, "<!DOCTYPE") == 0 || m.compare(lt, 2, "<?") == 0) {
      size_t gt = m.find('>', lt);
      if (gt == std::string_view::npos) break;
      pos = gt + 1;
    } else {
      // Past the prologue: copy the rest as it stands.
      out.append(m.substr(lt));
      break;
    }
  }
  return out;
}

std::string SchemaValidator::Validate(std::string_view message) const {
  std::string body = StripPrologue(message);
  std::string error;
  std::lock_guard lock(impl_->mutex);
  xmlDocPtr doc = xmlReadMemory(body.data(), static_cast<int>(body.size()), "message.xml", nullptr,
                                XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  if (!doc) {
    const xmlError* e = xmlGetLastError();
    return std::string("not well-formed: ") + (e && e->message ? e->message : "parse error");
  }
  if (!impl_->context) impl_->context = xmlSchemaNewValidCtxt(impl_->schema);
  // Only the plain handlers: setting structured ones (even to none) would reset these, and
  // the validator's messages would go to standard error instead of into the answer.
  xmlSchemaSetValidErrors(impl_->context, CollectFirst, CollectFirst, &error);
  int rc = xmlSchemaValidateDoc(impl_->context, doc);
  xmlSchemaSetValidErrors(impl_->context, nullptr, nullptr, nullptr);
  xmlFreeDoc(doc);
  if (rc == 0) return {};
  return error.empty() ? std::string("invalid") : error;
}

}  // namespace tessaron::qbsim
