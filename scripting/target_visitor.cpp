#include "scripting/target_visitor.h"

#include <stdexcept>

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/lexical_cast.hpp>

#include <orv_doc/group.h>

namespace HarrowSupport
{

TargetVisitor::TargetVisitor(const std::string& path,
                             std::function<void(OrvDoc::ContentObject&)>& actionToCall)
    : action(actionToCall)
{
    std::vector<std::string> parts;
    boost::algorithm::split(parts, path, boost::algorithm::is_any_of("."),
                            boost::algorithm::token_compress_off);
    for (const std::string& part : parts)
        target.push_back(boost::lexical_cast<int>(part));
    if (target.size() < 2)
        throw std::runtime_error("invalid target");
    counters.push_back(0);
}

TargetVisitor::~TargetVisitor() = default;

bool TargetVisitor::Visit(OrvDoc::Page&)
{
    CountOne();
    counters.push_back(0);
    return true;
}

void TargetVisitor::EndVisit(OrvDoc::Page&)
{
    CloseLevel();
}

bool TargetVisitor::Visit(OrvDoc::Group& group)
{
    ++depth;
    const std::int64_t position = CountOne();
    bool isOnPath = false;
    if (depth < target.size() && position == target[depth]) {
        if (depth == target.size() - 1) {
            action(group);
            // No level is opened for the group, yet one is closed behind it: what follows the group is
            // counted on the level around. Scripts rely on where the counts go from here.
            return false;
        }
        isOnPath = true;
    }
    counters.push_back(0);
    return isOnPath;
}

void TargetVisitor::EndVisit(OrvDoc::Group&)
{
    CloseLevel();
    --depth;
}

bool TargetVisitor::Visit(OrvDoc::ContentObject& object)
{
    const std::int64_t position = CountOne();
    // Not only on the last component: a path that goes on behind a plain object stops there.
    if (depth < target.size() - 1 && position == target[depth + 1])
        action(object);
    return true;
}

// Hits on groups can leave no level open; the next object then begins one.
std::int64_t TargetVisitor::CountOne()
{
    if (counters.empty())
        counters.push_back(0);
    return ++counters.back();
}

void TargetVisitor::CloseLevel()
{
    if (!counters.empty())
        counters.pop_back();
}

} // namespace HarrowSupport
