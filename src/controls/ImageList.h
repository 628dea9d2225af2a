/// @file
/// An ordered store of pictures that other controls take theirs from, by place or by key.
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <vector>

/// Pictures count from 1.
class ImageList : public QObject {
    Q_OBJECT

public:
    explicit ImageList(QObject *parent = nullptr);

    /// Puts a picture at a place; those at this place and behind it move on by one.
    /// @param index 1 to Count() + 1
    /// @param key its name in this list, or empty for a picture without one
    /// @throws RuntimeError 9 for a place that leaves a gap, 5 for a key that is taken
    void Add(int index, const QString &key, const QIcon &icon);
    int Count() const { return static_cast<int>(m_pictures.size()); }

    /// @throws RuntimeError 9 for a place without a picture
    QIcon Image(int index) const;
    /// @throws RuntimeError 5 for an unknown key
    QIcon Image(const QString &key) const;

private:
    struct Picture {
        QString Key;
        QIcon Icon;
    };
    const Picture *Find(const QString &key) const;
    std::vector<Picture> m_pictures;
};
