#pragma once

#include <orv_doc/visitor.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace HarrowSupport
{

/// Counts the objects of each level of a tree and calls a function where the counts meet an index path. For
/// one walk.
class TargetVisitor : public OrvDoc::VisitorBase
{
public:
    /// The function is referred to, not copied.
    TargetVisitor(const std::string& path, std::function<void(OrvDoc::ContentObject&)>& actionToCall);
    ~TargetVisitor() override;

    using OrvDoc::VisitorBase::EndVisit;
    using OrvDoc::VisitorBase::Visit;
    bool Visit(OrvDoc::Group& group) override;
    bool Visit(OrvDoc::ContentObject& object) override;
    bool Visit(OrvDoc::Page& page) override;
    void EndVisit(OrvDoc::Group& group) override;
    void EndVisit(OrvDoc::Page& page) override;

private:
    std::int64_t CountOne();
    void CloseLevel();

    std::function<void(OrvDoc::ContentObject&)>& action;
    std::vector<std::int64_t> target;
    /// How many children of each open level have been met so far, the innermost level last.
    std::vector<std::int64_t> counters;
    /// How many groups are open.
    std::uint64_t depth = 0;
};

} // namespace HarrowSupport
