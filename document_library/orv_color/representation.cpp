#include <orv_color/representation.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvColor
{

namespace
{

constexpr const char* KindNames[] = {"None", "Gray", "Rgb", "Cmyk", "Lab"};

const char* KindName(Representation::Kind kind)
{
    return KindNames[static_cast<std::size_t>(kind)];
}

} // namespace

Representation::Representation() = default;
Representation::Representation(const Representation&) = default;
Representation::Representation(Representation&&) noexcept = default;
Representation& Representation::operator=(const Representation&) = default;
Representation& Representation::operator=(Representation&&) noexcept = default;
Representation::~Representation() = default;

void Representation::Set(Kind newKind, std::size_t count, std::vector<Component>&& newComponents)
{
    if (newComponents.size() != count)
        throw std::invalid_argument(std::string("An alternate colour of kind ") + KindName(newKind) +
                                    " has " + std::to_string(count) + " components, not " +
                                    std::to_string(newComponents.size()) + ".");
    kind = newKind;
    components = std::move(newComponents);
}

void Representation::SetCmyk(std::vector<Component> newComponents)
{
    Set(Kind::Cmyk, 4, std::move(newComponents));
}

void Representation::SetGray(std::vector<Component> newComponents)
{
    Set(Kind::Gray, 1, std::move(newComponents));
}

void Representation::SetRgb(std::vector<Component> newComponents)
{
    Set(Kind::Rgb, 3, std::move(newComponents));
}

void Representation::SetLab(std::vector<Component> newComponents)
{
    Set(Kind::Lab, 3, std::move(newComponents));
}

bool operator==(const Representation& left, const Representation& right)
{
    return left.GetKind() == right.GetKind() && left.GetComponents() == right.GetComponents();
}

std::ostream& operator<<(std::ostream& stream, const Representation& representation)
{
    stream << KindName(representation.GetKind());
    if (representation.GetKind() != Representation::Kind::None)
        stream << representation.GetComponents();
    return stream;
}

} // namespace OrvColor
