#include "pdf/writer/file/object_walk.h"

#include <unordered_set>
#include <vector>

#include <qpdf/QPDF.hh>

namespace OrvPdf
{

namespace
{

bool IsContainer(QPDFObjectHandle object)
{
    return object.isArray() || object.isDictionary() || object.isStream();
}

} // namespace

void VisitObjects(QPDF& file, const std::function<void(QPDFObjectHandle&)>& visit)
{
    std::unordered_set<int> visited;
    std::vector<QPDFObjectHandle> pending = {file.getTrailer()};
    const auto add = [&](const QPDFObjectHandle& item) {
        QPDFObjectHandle object = item;
        // A number has one object only: no two generations of it are in a file at the same time.
        if ((!object.isIndirect() || visited.insert(object.getObjectID()).second) && IsContainer(object)) {
            pending.push_back(object);
        }
    };
    while (!pending.empty()) {
        QPDFObjectHandle object = pending.back();
        pending.pop_back();
        visit(object);
        if (object.isArray()) {
            for (const QPDFObjectHandle& item : object.aitems()) {
                add(item);
            }
            continue;
        }
        if (object.isStream()) {
            object = object.getDict();
        }
        for (const auto& entry : object.getDictAsMap()) {
            add(entry.second);
        }
    }
}

} // namespace OrvPdf
