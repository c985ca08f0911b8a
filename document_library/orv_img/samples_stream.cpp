#include "orv_img/samples_stream.h"

#include <utility>

#include <orv_img/picture_buffer.h>

namespace OrvImg::Detail
{

namespace
{

class SamplesStream : public PictureStream
{
public:
    explicit SamplesStream(std::shared_ptr<const PictureBuffer> givenBuffer) : buffer(std::move(givenBuffer))
    {}

    Type GetType() const override { return Type::Samples; }

    std::string_view GetBytes() const override
    {
        return {reinterpret_cast<const char*>(buffer->GetRowPtr(0)),
                buffer->GetBytesPerRow() * buffer->height};
    }

private:
    std::shared_ptr<const PictureBuffer> buffer;
};

} // namespace

std::unique_ptr<PictureStream> MakeSamplesStream(std::shared_ptr<const PictureBuffer> buffer)
{
    return std::make_unique<SamplesStream>(std::move(buffer));
}

} // namespace OrvImg::Detail
