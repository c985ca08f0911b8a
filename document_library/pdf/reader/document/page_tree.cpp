#include "pdf/reader/document/page_tree.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include <qpdf/QPDF.hh>

#include "pdf/limit_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

class PageTreeWalk
{
public:
    PageTreeWalk(const OrvDoc::ReadOptions::Limits& givenLimits, ErrorList& givenErrors)
        : limits(givenLimits), errors(givenErrors)
    {}

    std::vector<PageEntry> Run(QPDFObjectHandle root)
    {
        Enter(root, {}, "the catalogue's Pages");
        while (!path.empty() && !isFull) {
            Level& level = path.back();
            if (level.next == level.count) {
                path.pop_back();
                continue;
            }
            const int index = level.next++;
            // Entering a node may move the level.
            const InheritedEntries inherited = level.inherited;
            const std::string place = level.name + ": entry " + std::to_string(index + 1) + " of Kids";
            Enter(level.kids.getArrayItem(index), inherited, place);
        }
        return std::move(pages);
    }

private:
    struct Level
    {
        std::string name;
        QPDFObjectHandle kids;
        int count = 0;
        int next = 0;
        InheritedEntries inherited;
    };

    void Enter(QPDFObjectHandle node, InheritedEntries inherited, const std::string& place)
    {
        std::string problem;
        if (!GuardLookUp(problem, [&] { EnterNode(node, std::move(inherited), place); }))
            errors.Add(place + " cannot be read: " + problem);
    }

    void EnterNode(QPDFObjectHandle node, InheritedEntries inherited, const std::string& place)
    {
        const std::string name = DescribeObject(node);
        if (!node.isDictionary()) {
            errors.Add(place + " (" + name + ") is " + (node.isNull() ? "null" : "no dictionary"));
            return;
        }
        Override(inherited.resources, node, "/Resources");
        Override(inherited.mediaBox, node, "/MediaBox");
        Override(inherited.cropBox, node, "/CropBox");
        Override(inherited.rotate, node, "/Rotate");

        QPDFObjectHandle kids = node.getKey("/Kids");
        const std::string type = GetNameText(node.getKey("/Type"));
        if (kids.isArray())
            EnterInnerNode(node, kids, std::move(inherited), name);
        else if (type == "Pages")
            errors.Add(name + ": a node of the page tree without an array Kids is left out");
        else
            AddPage(node, std::move(inherited), name, type);
    }

    void EnterInnerNode(QPDFObjectHandle node, QPDFObjectHandle kids, InheritedEntries inherited,
                        const std::string& name)
    {
        if (node.isIndirect() && !visited.insert(node.getObjGen()).second) {
            errors.Add(name + ": a node that the page tree reaches again is left out there");
            return;
        }
        if (path.size() >= limits.pageTreeNesting) {
            errors.Add(name + ": " +
                       LimitText("pageTreeNesting", limits.pageTreeNesting,
                                 "nodes of the page tree below it are left out"));
            return;
        }
        path.push_back({name, kids, kids.getArrayNItems(), 0, std::move(inherited)});
    }

    void AddPage(QPDFObjectHandle node, InheritedEntries inherited, const std::string& name,
                 const std::string& type)
    {
        if (pages.size() >= limits.pages) {
            errors.Add(name + ": " +
                       LimitText("pages", limits.pages, "this page and those after it are left out"));
            isFull = true;
            return;
        }
        if (!type.empty() && type != "Page")
            errors.Add(name + ": a node of the page tree has the Type " + type + " and is taken for a page");
        PageEntry page;
        page.dictionary = node;
        page.entries = std::move(inherited);
        if (node.isIndirect()) {
            page.locator.objectNumber = node.getObjectID();
            page.locator.generation = node.getGeneration();
        } else {
            for (const Level& level : path)
                page.locator.kidPath.push_back(level.next - 1);
        }
        pages.push_back(std::move(page));
    }

    static void Override(QPDFObjectHandle& inherited, QPDFObjectHandle node, const char* key)
    {
        QPDFObjectHandle own = node.getKey(key);
        if (!inherited.isInitialized() || !own.isNull())
            inherited = own;
    }

    const OrvDoc::ReadOptions::Limits& limits;
    ErrorList& errors;
    std::vector<Level> path;
    std::set<QPDFObjGen> visited;
    std::vector<PageEntry> pages;
    bool isFull = false;
};

// Pages whose tree is lost.
std::vector<QPDFObjectHandle> FindLonePages(QPDF& file)
{
    std::vector<QPDFObjectHandle> found;
    for (const auto& entry : file.getXRefTable()) {
        QPDFObjectHandle object = file.getObject(entry.first);
        if (object.isDictionary() && object.getKey("/Type").isNameAndEquals("/Page"))
            found.push_back(object);
    }
    return found;
}

} // namespace

bool HasPages(QPDF& file)
{
    return file.getRoot().getKey("/Pages").isDictionary() || !FindLonePages(file).empty();
}

std::vector<PageEntry> ReadPageEntries(QPDF& file, const OrvDoc::ReadOptions::Limits& limits,
                                       ErrorList& errors)
{
    QPDFObjectHandle root = file.getRoot().getKey("/Pages");
    if (root.isDictionary())
        return PageTreeWalk(limits, errors).Run(root);
    errors.Add("the catalogue's Pages is no dictionary; the file's page objects are taken in order of their "
               "numbers");
    std::vector<PageEntry> pages;
    for (QPDFObjectHandle page : FindLonePages(file)) {
        std::vector<PageEntry> found = PageTreeWalk(limits, errors).Run(page);
        std::move(found.begin(), found.end(), std::back_inserter(pages));
        if (pages.size() >= limits.pages)
            break;
    }
    return pages;
}

} // namespace OrvPdf
