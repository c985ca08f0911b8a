#include "pdf/reader/resources/form_properties.h"

#include <boost/filesystem/operations.hpp>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

namespace
{

using FormPaint = OrvPaint::FormPaint;

/// The file of a file specification (ISO 32000-1, 7.11); empty if there is none.
std::string ReadFileName(QPDFObjectHandle specification)
{
    if (specification.isString())
        return GetTextString(specification);
    const std::string unicode = GetTextString(GetEntry(specification, "/UF"));
    return unicode.empty() ? GetTextString(GetEntry(specification, "/F")) : unicode;
}

void ReadReference(QPDFObjectHandle reference, const SourceFile& file, FormPaint::Factory& factory,
                   std::vector<std::string>& problems)
{
    if (reference.isNull())
        return;
    const std::string name = ReadFileName(GetEntry(reference, "/F"));
    QPDFObjectHandle page = GetEntry(reference, "/Page");
    if (name.empty()) {
        problems.push_back("Ref is left out: it names no file");
    } else if (!page.isInteger() || page.getIntValue() < 0) {
        problems.push_back("Ref is left out: its page is not told by an index");
    } else {
        const boost::filesystem::path folder = boost::filesystem::absolute(file.GetPath()).parent_path();
        factory.SetExternalReference(
            std::make_pair(boost::filesystem::absolute(name, folder).lexically_normal(),
                           static_cast<std::size_t>(page.getIntValue())));
    }
}

void ReadScope(QPDFObjectHandle scope, FormPaint::Factory& factory, std::vector<std::string>& problems)
{
    if (scope.isNull())
        return;
    const std::string name = GetNameText(scope);
    for (std::uint32_t value = 0; value < 6; ++value) {
        if (name == formScopeNames[value]) {
            factory.SetScope(static_cast<FormPaint::Scope>(value));
            return;
        }
    }
    problems.push_back("GTS_Scope is left out: there is no scope /" + name);
}

} // namespace

const char* const formScopeNames[6] = {"Unknown", "SingleUse", "Record", "File", "Stream", "Global"};

void ReadFormProperties(QPDFObjectHandle form, DocumentResources& document,
                        OrvPaint::FormPaint::Factory& factory, std::vector<std::string>& problems)
{
    ReadReference(GetEntry(form, "/Ref"), document.GetFile(), factory, problems);
    ReadScope(GetEntry(form, "/GTS_Scope"), factory, problems);
    QPDFObjectHandle id = GetEntry(form, "/GTS_XID");
    if (id.isString())
        factory.SetUniqueID(id.getStringValue());
}

} // namespace OrvPdf
