// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading an animation: the document is checked, the other program says what it paints frame by frame, each frame is
// taken as soon as it has come, and frames of a layer that paint the same become one drawing.
#include "QuarvelDrawingIO/DIO_LottieReader.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelDrawingIO/DIO_LottieStream.h"
#include "QuarvelDrawingIO/private/DIO_LottieArchive.h"
#include "QuarvelDrawingIO/private/DIO_LottieDocument.h"
#include "QuarvelDrawingIO/private/DIO_LottiePainter.h"
#include "QuarvelDrawingIO/private/DIO_LottieProcess.h"
#include "QuarvelDrawingIO/private/DIO_RoundedShapes.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr qint64 kMaxFileSize = 64 * 1024 * 1024;

UT_Error problem(const QString& path, const QString& what)
{
    return {path + QStringLiteral(": ") + what};
}

UT_Result<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (const UT_Result<void> opened = UT_openFile(file); !opened)
        return problem(path, opened.error().text);
    const QByteArray bytes = file.read(kMaxFileSize + 1);
    if (bytes.size() > kMaxFileSize)
        return problem(path, QStringLiteral("the file is larger than the 64 MiB that can be read"));
    return bytes;
}

UT_Result<DIO_LottieArchive> readDocument(const QString& path)
{
    UT_Result<QByteArray> bytes = readFile(path);
    if (!bytes)
        return bytes.error();
    if (!DIO_isLottieArchive(*bytes))
        return DIO_LottieArchive{std::move(*bytes), {}};
    UT_Result<DIO_LottieArchive> archive = DIO_readLottieArchive(path, kMaxFileSize);
    return archive ? std::move(archive) : problem(path, archive.error().text);
}

// Gathers the frames of an animation.
class FrameCollector
{
public:
    explicit FrameCollector(DIO_Animation& animation)
        : _animation(animation)
        , _painter(animation.palette)
        , _rounded(std::max(animation.size.width(), animation.size.height()))
    {}

    void add(const DIO_LottieLayer& root)
    {
        const std::size_t count = std::max(root.layers.size(), _animation.layers.size());
        _animation.layers.resize(count);
        _known.resize(count);
        for (DIO_AnimatedLayer& layer : _animation.layers)
            layer.shown.resize(static_cast<std::size_t>(_frames) + 1, kNothing);
        for (std::size_t i = 0; i < root.layers.size(); ++i)
            _animation.layers[i].name = root.layers[i].name;
        DIO_forEachPainted(root.layers,
                           [this](std::size_t index, const DIO_LottieLayer& layer, const DIO_LottieLayer* matte) {
                               _animation.layers[index].shown.back() = drawingOf(index, layer, matte);
                           });
        ++_frames;
    }

    int tooDetailed() const { return _painter.tooDetailed(); }

private:
    static constexpr int kNothing = -1;

    int drawingOf(std::size_t index, const DIO_LottieLayer& layer, const DIO_LottieLayer* matte)
    {
        QCryptographicHash hash(QCryptographicHash::Blake2b_256);
        hash.addData(layer.bytes);
        hash.addData(matte ? matte->bytes : QByteArray());
        const QByteArray key = hash.result();
        const auto found = _known[index].constFind(key);
        if (found != _known[index].constEnd())
            return *found;
        std::vector<DIO_Shape> shapes = _painter.paint(layer, matte);
        _rounded.round(shapes);
        auto& drawings = _animation.layers[index].drawings;
        const int drawing = shapes.empty() ? kNothing : static_cast<int>(drawings.size());
        if (!shapes.empty())
            drawings.push_back(std::move(shapes));
        return *_known[index].insert(key, drawing);
    }

    DIO_Animation& _animation;
    DIO_LottiePainter _painter;
    DIO_RoundedShapes _rounded;
    std::vector<QHash<QByteArray, int>> _known; // by layer: the drawings by what they were made from
    int _frames = 0;
};

// Takes frames out of a stream while the other program writes it.
class StreamCollector
{
public:
    // The stream and the layers outlive this.
    StreamCollector(const QByteArray& stream, const std::vector<DIO_LottieLayerFacts>& layers,
                    const DIO_LottieLimits& limits, DIO_Animation& animation)
        : _stream(stream), _reader(stream, layers), _limits(limits), _animation(animation)
    {}

    bool isStopped() const { return _stopped; }

    // Takes the frames that have come. A frame that has come in part is not tried for every few bytes: the next one is
    // about as large as the last. @return whether to go on
    bool takeWhatCame()
    {
        if (!tellProgress())
            return false;
        if (_stream.size() >= _tryAt)
            takeFrames();
        return !_stopped;
    }

    // Takes the rest of a stream that is complete. @return whether it was whole
    bool takeRest()
    {
        takeFrames();
        if (_stopped || !_collector || _taken < _animation.frames)
            return false;
        if (_collector->tooDetailed() > 0)
            _animation.warnings.append(
                QStringLiteral("clips, masks or mattes that are too detailed do not cut: %1 times")
                    .arg(_collector->tooDetailed()));
        return _reader.readEnd();
    }

private:
    // Where the stream's first frame begins.
    static constexpr qsizetype kHeaderBytes = static_cast<qsizetype>(DIO_LottieStream::kMagic.size()) + 3 * 8 + 4;

    bool tellProgress()
    {
        // All is done only when the other program has ended, too.
        const double done =
            _collector ? static_cast<double>(std::min(_taken, _animation.frames - 1)) / _animation.frames : 0.0;
        _stopped = _stopped || (_limits.goOn && !_limits.goOn(done));
        return !_stopped;
    }

    bool takeHeader()
    {
        if (_collector || _stream.size() < kHeaderBytes)
            return _collector.has_value();
        const std::optional<DIO_LottieHeader> header = _reader.readHeader();
        if (!header)
            return false;
        _animation.size = QSizeF(header->width, header->height);
        _animation.viewBox = QRectF(QPointF(), _animation.size);
        _animation.frameRate = header->frameRate;
        _animation.frames = header->frames;
        _collector.emplace(_animation);
        return true;
    }

    void takeFrames()
    {
        if (!takeHeader())
            return;
        while (_taken < _animation.frames && tellProgress()) {
            const qsizetype begin = _reader.position();
            const std::optional<DIO_LottieLayer> root = _reader.readFrame();
            if (!root) {
                _tryAt = _stream.size() + _lastBytes;
                return;
            }
            _collector->add(*root);
            ++_taken;
            _lastBytes = _reader.position() - begin;
        }
    }

    const QByteArray& _stream;
    DIO_LottieStreamReader _reader;
    const DIO_LottieLimits& _limits;
    DIO_Animation& _animation;
    std::optional<FrameCollector> _collector; // once the header has come
    bool _stopped = false;
    int _taken = 0;
    qsizetype _lastBytes = 0;
    qsizetype _tryAt = kHeaderBytes;
};

void tidyLayers(std::vector<DIO_AnimatedLayer>& layers)
{
    for (std::size_t i = 0; i < layers.size(); ++i)
        if (layers[i].name.isEmpty())
            layers[i].name = QStringLiteral("Layer %1").arg(i + 1);
    std::erase_if(layers, [](const DIO_AnimatedLayer& layer) { return layer.drawings.empty(); });
}

} // namespace

UT_Result<DIO_Animation> DIO_readLottie(const QString& path, const DIO_LottieLimits& limits)
{
    const UT_Result<DIO_LottieArchive> file = readDocument(path);
    if (!file)
        return file.error();
    const UT_Result<DIO_LottieDocument> prepared = DIO_prepareLottieDocument(file->document);
    if (!prepared)
        return problem(path, prepared.error().text);

    DIO_Animation animation;
    animation.name = QFileInfo(path).completeBaseName();
    if (!file->warning.isEmpty())
        animation.warnings << file->warning;
    animation.warnings += prepared->warnings;
    QByteArray stream;
    StreamCollector collector(stream, prepared->layers, limits, animation);
    if (const UT_Result<void> ran =
            DIO_runLottieProgram(prepared->bytes, path, limits, stream, [&] { return collector.takeWhatCame(); });
        !ran)
        return ran.error();
    const bool isWhole = collector.takeRest();
    if (collector.isStopped())
        return UT_stopped();
    if (!isWhole)
        return problem(path, QStringLiteral("reading it went wrong; the file is probably damaged"));
    tidyLayers(animation.layers);
    if (animation.layers.empty())
        return problem(path, QStringLiteral("the animation is empty: nothing in it is filled or stroked"));
    return animation;
}
