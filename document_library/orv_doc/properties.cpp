#include <orv_doc/properties.h>

namespace OrvDoc
{

Properties::Properties() = default;
Properties::~Properties() = default;

const boost::any* Properties::Find(boost::string_view key) const
{
    for (const Entry& entry : entries_) {
        if (key == entry.key)
            return &entry.value;
    }
    return nullptr;
}

bool Properties::Remove(boost::string_view key)
{
    for (auto entry = entries_.begin(); entry != entries_.end(); ++entry) {
        if (key != entry->key)
            continue;
        // The value goes after its entry: its destructor may come back here.
        boost::any last;
        last.swap(entry->value);
        entries_.erase(entry);
        return true;
    }
    return false;
}

} // namespace OrvDoc
