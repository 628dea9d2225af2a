#include "controls/ImageList.h"

#include "platform/RuntimeError.h"

#include <algorithm>

ImageList::ImageList(QObject *parent) : QObject(parent) {}

void ImageList::Add(int index, const QString &key, const QIcon &icon)
{
    if (index < 1 || index > Count() + 1)
        throw RuntimeError(ErrorNumber::OutOfRange);
    if (Find(key) != nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall);
    m_pictures.insert(m_pictures.begin() + (index - 1), Picture{key, icon});
}

QIcon ImageList::Image(int index) const
{
    if (index < 1 || index > Count())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return m_pictures[static_cast<std::size_t>(index - 1)].Icon;
}

QIcon ImageList::Image(const QString &key) const
{
    const Picture *picture = Find(key);
    if (picture == nullptr)
        throw RuntimeError(ErrorNumber::InvalidCall);
    return picture->Icon;
}

const ImageList::Picture *ImageList::Find(const QString &key) const
{
    if (key.isEmpty())
        return nullptr;
    const auto found = std::find_if(m_pictures.begin(), m_pictures.end(),
                                    [&key](const Picture &picture) { return picture.Key == key; });
    return found != m_pictures.end() ? &*found : nullptr;
}
