// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loads scenes. The scene is returned only after all its files have been read and parsed. The folder is not locked: if
// another program saves the scene meanwhile, everything is read again.
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "QuarvelSceneIO/private/SIO_FolderLock.h"
#include "QuarvelSceneIO/private/SIO_FolderReader.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_Scene.h"
#include "QuarvelSceneIO/private/SIO_SourcePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <optional>

namespace {

/// How often to try to read a scene that other programs are saving; the last attempt takes the lock.
constexpr int kAttempts = 5;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_LoadScene)
};

// Loads one scene once.
class Loader
{
public:
    Loader(SIO_FolderReader& files, const SIO_Progress& goOn) : _files(files), _goOn(goOn) {}

    UT_Result<SIO_LoadedScene> load()
    {
        if (const auto opened = _files.open(); !opened)
            return opened.error();
        if (!_files.journalLeftAlone().isEmpty())
            _warnings.add(QString(), _files.journalLeftAlone());
        const auto bytes = _files.read(kSIO_mainFile);
        if (!bytes)
            return bytes.error();
        const SIO_XmlContext context(_files.shown(kSIO_mainFile), &_warnings);
        const auto document = PO_parseDocument(*bytes, context.file(), SIO_maxPartsOf(kSIO_mainFile));
        if (!document)
            return document.error();
        if (const auto read = readMainFile(document->documentElement(), context); !read)
            return read.error();
        _scene->index.scene = QDomElement();
        return SIO_LoadedScene{std::move(_scene), _warnings.lines(), _files.state()};
    }

private:
    UT_Result<void> readMainFile(const QDomElement& root, const SIO_XmlContext& context)
    {
        auto index = SIO_readIndex(root, context);
        if (!index)
            return index.error();
        _scene->index = std::move(*index);
        QStringList warnings;
        const auto read = _scene->readXml(_scene->index.scene, &warnings);
        for (const QString& warning : std::as_const(warnings))
            _warnings.add(context.file(), warning);
        if (!read)
            return UT_Error{context.file() + QStringLiteral(": ") + read.error().text};
        for (const SIO_Index::Palette& palette : _scene->index.palettes)
            if (auto loaded = readPalette(palette); !loaded)
                return UT_Error{context.file() + Texts::tr(", line %1: ").arg(palette.line) + loaded.error().text};
        for (const SIO_Index::Element& element : _scene->index.elements)
            _drawings += element.drawings.size();
        for (const SIO_Index::Element& element : _scene->index.elements)
            if (auto loaded = readElement(element, context); !loaded)
                return loaded;
        return {};
    }

    UT_Result<void> readPalette(const SIO_Index::Palette& entry)
    {
        const auto bytes = _files.read(entry.path());
        if (!bytes)
            return bytes.error();
        auto palette = SIO_readPalette(*bytes, entry.id, SIO_XmlContext(_files.shown(entry.path()), &_warnings));
        if (!palette)
            return palette.error();
        (*palette)->unknownOfEntry = entry.unknown;
        _palettes.insert({entry.id, *palette});
        if (entry.inScene)
            _scene->addPalette(*palette);
        else
            _scene->otherPalettes.push_back(*palette);
        return {};
    }

    UT_Result<void> readElement(const SIO_Index::Element& entry, const SIO_XmlContext& context)
    {
        const auto at = [&](int line, const QString& reason) {
            return UT_Error{Texts::tr("%1, line %2: %3").arg(context.file(), QString::number(line), reason)};
        };
        MO_Module* const module = _scene->findModule(entry.module);
        auto* const element = dynamic_cast<MO_ElementModule*>(module);
        const bool isOpaque = dynamic_cast<MO_OpaqueModule*>(module) != nullptr;
        if (!element && !isOpaque)
            return at(entry.line, Texts::tr("the scene has no node \"%1\" with drawings").arg(entry.module));
        SIO_Scene::Kept kept{entry, {}};
        for (const SIO_Index::Drawing& drawing : entry.drawings) {
            if (_goOn && !_goOn(static_cast<double>(_read++) / static_cast<double>(_drawings)))
                return UT_stopped();
            auto bytes = _files.read(entry.pathOf(drawing));
            if (!bytes)
                return at(drawing.line, bytes.error().text);
            if (isOpaque)
                kept.files.push_back(*bytes);
            else if (auto read = readDrawing(*element, entry, drawing, *bytes); !read)
                return read;
        }
        if (element)
            element->setOrigin(originOf(entry));
        if (isOpaque)
            _scene->kept.insert({entry.module, std::move(kept)});
        return {};
    }

    // An entry that names no source of the index is that of drawings of which nobody knows where they came from.
    MO_DrawingOrigin originOf(const SIO_Index::Element& entry) const
    {
        const auto& sources = _scene->index.sources;
        MO_DrawingOrigin nowhere{{}, {}, {}, {}, entry.reason};
        if (entry.source < 1 || entry.source > static_cast<int>(sources.size()))
            return nowhere;
        const SIO_Index::Source& source = sources[static_cast<std::size_t>(entry.source) - 1];
        MO_DrawingOrigin origin{{}, entry.layer, source.objects, source.digest, entry.reason};
        for (const SIO_Index::SourceFile& file : source.files)
            origin.files << SIO_sourceFile(file.path, _files.folder());
        return origin.files.contains(QString()) ? nowhere : origin;
    }

    UT_Result<void> readDrawing(MO_ElementModule& element, const SIO_Index::Element& owner,
                                const SIO_Index::Drawing& entry, const QByteArray& bytes)
    {
        const auto find = [this](const UT_Id& id) {
            const auto found = _palettes.find(id);
            return found == _palettes.end() ? nullptr : found->second;
        };
        const auto drawing =
            SIO_readDrawing(bytes, find, SIO_XmlContext(_files.shown(owner.pathOf(entry)), &_warnings));
        if (!drawing)
            return drawing.error();
        (*drawing)->unknownOfEntry = entry.unknown;
        element.setDrawing(entry.name, *drawing);
        return {};
    }

    SIO_FolderReader& _files;
    const SIO_Progress& _goOn;
    std::size_t _drawings = 0;
    std::size_t _read = 0;
    SIO_Warnings _warnings;
    std::unique_ptr<SIO_Scene> _scene = std::make_unique<SIO_Scene>();
    std::map<UT_Id, CM_SharedPtr<CM_Palette>> _palettes;
};

// Finishes an interrupted save of this user's; the caller must hold the lock. If the disk is full or fails, the scene
// can still be read through the journal.
void finishSaveLocked(const QString& folder)
{
    SIO_FileSystem disk;
    if (const auto waiting = SIO_waitingJournal(folder); waiting && waiting->own)
        (void)SIO_recover(folder, disk);
}

// Finishes an interrupted save of this user's. Opening a scene never writes anything else. In a folder without write
// permission, the scene is read through the journal.
UT_Result<void> finishSave(const QString& folder, const SIO_Progress& goOn)
{
    const auto waiting = SIO_waitingJournal(folder);
    if (!waiting)
        return waiting.error();
    if (!waiting->own)
        return {};
    SIO_FolderLock lock(folder);
    if (const auto locked = lock.lock([&] { return !goOn || goOn(0.0); }); !locked)
        return lock.isReadOnly() ? UT_Result<void>() : locked;
    finishSaveLocked(folder);
    return {};
}

// Reads the scene without preventing others from saving it.
// @return std::nullopt if another program changed it meanwhile
std::optional<UT_Result<SIO_LoadedScene>> readBetweenSaves(const QString& folder, const SIO_Progress& goOn)
{
    if (const auto finished = finishSave(folder, goOn); !finished)
        return finished.error();
    SIO_FolderReader files(folder);
    auto loaded = Loader(files, goOn).load();
    if (!loaded && loaded.error().kind == UT_ErrorKind::STOPPED)
        return loaded;
    // While another program moves files into place, a file may vanish between finding and opening it.
    const bool mayHaveMoved = !loaded && files.sawJournal();
    // A journal that is not this user's may be that of another user who is saving right now.
    const bool maybeSaving = !files.journalLeftAlone().isEmpty() && SIO_FolderLock::isHeldByOthers(folder);
    if (!files.isUnchanged() || mayHaveMoved || maybeSaving)
        return std::nullopt;
    return loaded;
}

// Reads the scene while others cannot save it; if the folder cannot be locked, without the lock.
UT_Result<SIO_LoadedScene> readAlone(const QString& folder, const SIO_Progress& goOn)
{
    SIO_FolderLock lock(folder);
    const auto locked = lock.lock([&] { return !goOn || goOn(0.0); });
    if (!locked && !lock.isReadOnly())
        return locked.error();
    if (locked)
        finishSaveLocked(folder);
    SIO_FolderReader files(folder);
    auto loaded = Loader(files, goOn).load();
    if (!files.isUnchanged())
        return UT_Error{Texts::tr("the scene \"%1\" is being saved again and again; try later").arg(folder)};
    return loaded;
}

} // namespace

SIO_Scene::~SIO_Scene() = default;

UT_Result<SIO_LoadedScene> SIO_loadScene(const QString& folder, const SIO_Progress& goOn)
{
    // An absolute path without a slash at its end, so never empty.
    const QString home = QDir::cleanPath(QFileInfo(folder).absoluteFilePath());
    if (!QFileInfo(home).isDir())
        return UT_Error{Texts::tr("there is no scene \"%1\"").arg(QDir::toNativeSeparators(folder))};
    for (int attempt = 1; attempt < kAttempts; ++attempt)
        if (auto loaded = readBetweenSaves(home, goOn))
            return std::move(*loaded);
    return readAlone(home, goOn);
}
