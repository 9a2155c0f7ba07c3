// SPDX-License-Identifier: MIT
#include "qt/WidgetState.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>
#include <algorithm>
#include <cmath>

#include "automation/Utf8.h"

namespace planview {

namespace {

constexpr quint32 Magic = 0x50565354;  // "PVST"
constexpr quint16 Version = 1;
constexpr double LeastScale = 0.5;
constexpr double LargestScale = 3.0;

QDataStream& operator<<(QDataStream& out, const std::string& text) {
    return out << QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

QDataStream& operator>>(QDataStream& in, std::string& text) {
    QByteArray bytes;
    in >> bytes;
    text.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (!IsValidUtf8(text)) {
        in.setStatus(QDataStream::ReadCorruptData);
    }
    return in;
}

template <class Item, class Write>
void writeAll(QDataStream& out, const std::vector<Item>& items, const Write& write) {
    out << static_cast<quint32>(items.size());
    for (const Item& item : items) {
        write(item);
    }
}

/// Makes no room for a count before the items have come: it may be anything.
template <class Item, class Read>
void readAll(QDataStream& in, std::vector<Item>& items, const Read& read) {
    quint32 count = 0;
    in >> count;
    for (quint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        read(items.emplace_back());
    }
}

void writeTracks(QDataStream& out, const std::vector<KeptView::Track>& tracks) {
    writeAll(out, tracks,
             [&](const KeptView::Track& track) { out << track.key << qint16{track.width} << qint16{track.height}; });
}

void readTracks(QDataStream& in, std::vector<KeptView::Track>& tracks) {
    readAll(in, tracks, [&](KeptView::Track& track) { in >> track.key >> track.width >> track.height; });
}

QByteArray sumOf(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Md5);  // against damage, not against malice
}

bool isPossible(const WidgetState& state) {
    const auto isPosition = [](int position) {
        return position >= PaneLayout::LeastShare && position <= PaneLayout::WholeExtent - PaneLayout::LeastShare;
    };
    return IsPossible(state.grid) && state.scale >= LeastScale && state.scale <= LargestScale &&
           std::all_of(state.splitters.begin(), state.splitters.end(), isPosition);
}

}  // namespace

QByteArray toBytes(const WidgetState& state) {
    QByteArray content;
    QDataStream inner(&content, QIODevice::WriteOnly);
    inner.setVersion(QDataStream::Qt_6_0);
    writeTracks(inner, state.grid.columns);
    writeTracks(inner, state.grid.rows);
    inner << qint16{state.grid.labelWidth} << state.grid.firstColumn << state.grid.firstRow;
    for (const int position : state.splitters) {
        inner << qint32{position};
    }
    inner << state.scale;
    writeAll(inner, state.nodes, [&](const auto& node) { inner << node.first << node.second; });

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << Magic << Version << content << sumOf(content);
    return bytes;
}

std::optional<WidgetState> widgetStateFrom(const QByteArray& bytes) {
    QDataStream outer(bytes);
    outer.setVersion(QDataStream::Qt_6_0);
    quint32 magic = 0;
    quint16 version = 0;
    QByteArray content;
    QByteArray sum;
    outer >> magic >> version;
    if (magic != Magic || version != Version) {
        return std::nullopt;
    }
    outer >> content >> sum;
    if (outer.status() != QDataStream::Ok || !outer.atEnd() || sum != sumOf(content)) {
        return std::nullopt;
    }
    WidgetState state;
    QDataStream in(content);
    in.setVersion(QDataStream::Qt_6_0);
    readTracks(in, state.grid.columns);
    readTracks(in, state.grid.rows);
    in >> state.grid.labelWidth >> state.grid.firstColumn >> state.grid.firstRow;
    for (int& position : state.splitters) {
        qint32 read = 0;
        in >> read;
        position = read;
    }
    in >> state.scale;
    readAll(in, state.nodes, [&](auto& node) { in >> node.first >> node.second; });
    const bool whole = in.status() == QDataStream::Ok && in.atEnd();
    return whole && isPossible(state) ? std::optional(std::move(state)) : std::nullopt;
}

}  // namespace planview
