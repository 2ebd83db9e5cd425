// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes the files of a scene. File names are chosen in the order of the modules, so that a scene always gets the same
// names.
#include "QuarvelSceneIO/private/SIO_SceneFiles.h"

#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneIO/private/SIO_FileNames.h"
#include "QuarvelSceneIO/private/SIO_ForEach.h"
#include "QuarvelSceneIO/private/SIO_Limits.h"
#include "QuarvelSceneIO/private/SIO_Scene.h"
#include "QuarvelSceneIO/private/SIO_SourcePath.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_SceneFiles)
};

// An upper bound for the number of elements and attributes in a file.
qint64 partsOf(const QByteArray& bytes)
{
    return bytes.count('<') + bytes.count('=');
}

// Collects the files of one scene and remembers the first problem.
class Collector
{
public:
    Collector(const MO_Scene& scene, const QString& home, const SIO_Progress& goOn)
        : _scene(scene), _home(home), _goOn(goOn), _loaded(dynamic_cast<const SIO_Scene*>(&scene))
    {
        scene.root().forEachModule([this](const MO_Module& module) {
            if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module))
                _drawings += element->drawings().size();
        });
    }

    UT_Result<QMap<QString, QByteArray>> collect()
    {
        if (_loaded) {
            _index.unknown = _loaded->index.unknown;
            _index.unknownOfPalettes = _loaded->index.unknownOfPalettes;
            _index.unknownOfElements = _loaded->index.unknownOfElements;
            _index.unknownOfSources = _loaded->index.unknownOfSources;
        }
        for (const auto& palette : _scene.palettes())
            addPalette(palette, true);
        _scene.root().forEachModule([this](const MO_Module& module) { addModule(module); });
        if (const auto small = _scene.root().mayBeFiled(); !small)
            fail(small.error().text);
        // It is unknown which of these palettes the drawings of unknown modules need, so all are kept.
        if (_loaded && _hasKept)
            for (const auto& palette : _loaded->otherPalettes)
                addPalette(palette, false);
        if (_stopped)
            return UT_stopped();
        addFile(kSIO_mainFile, SIO_writeMainFile(_index, _scene));
        if (!_problem.isEmpty())
            return UT_Error{_problem};
        return _files;
    }

private:
    void fail(const QString& problem)
    {
        if (_problem.isEmpty())
            _problem = problem;
    }

    void addFile(const QString& path, const QByteArray& bytes)
    {
        if (bytes.size() > SIO_maxBytesOf(path))
            fail(
                Texts::tr("\"%1\" would be larger than %2 MiB").arg(path, QString::number(SIO_maxBytesOf(path) >> 20)));
        if (partsOf(bytes) > SIO_maxPartsOf(path))
            fail(Texts::tr("\"%1\" would have more than %2 elements and attributes")
                     .arg(path, QString::number(SIO_maxPartsOf(path))));
        _files.insert(path, bytes);
    }

    void addPalette(const CM_SharedPtr<CM_Palette>& palette, bool inScene)
    {
        const auto found = _palettes.find(palette->GetId());
        if (found != _palettes.end()) {
            if (found->second != palette.get() && SIO_writePalette(*found->second) != SIO_writePalette(*palette))
                fail(Texts::tr("two different palettes have the identifier %1")
                         .arg(QLatin1String(palette->GetId().AsString().c_str())));
            return;
        }
        if (palette->GetId().isNull())
            fail(Texts::tr("the palette \"%1\" has no identifier").arg(palette->GetName().ToQString()));
        _palettes.insert({palette->GetId(), palette.get()});
        SIO_Index::Palette entry{palette->GetId(), inScene};
        if (const auto* loaded = dynamic_cast<const SIO_Palette*>(palette.get()))
            entry.unknown = loaded->unknownOfEntry;
        addFile(entry.path(), SIO_writePalette(*palette));
        _index.palettes.push_back(std::move(entry));
    }

    void addModule(const MO_Module& module)
    {
        if (_stopped)
            return;
        if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module))
            addElement(*element);
        else if (_loaded && dynamic_cast<const MO_OpaqueModule*>(&module))
            addKept(module);
    }

    SIO_Index::Element newEntry(const MO_Module& module)
    {
        SIO_Index::Element entry{module.instanceName(), _folders.add(module.instanceName())};
        if (!_loaded)
            return entry;
        const auto& read = _loaded->index.elements;
        const auto found = std::find_if(read.begin(), read.end(),
                                        [&](const SIO_Index::Element& other) { return other.module == entry.module; });
        if (found != read.end())
            entry.unknown = found->unknown;
        return entry;
    }

    void addElement(const MO_ElementModule& element)
    {
        if (element.drawings().empty())
            return;
        SIO_Index::Element entry = newEntry(element);
        entry.source = sourceOf(element.origin());
        entry.layer = element.origin().layer;
        entry.reason = element.origin().reason;
        SIO_FileNames names;
        const std::vector<UT_Result<QByteArray>> texts = textsOf(element, entry.module);
        for (std::size_t i = 0; const auto& [name, drawing] : element.drawings()) {
            const UT_Result<QByteArray>& bytes = texts[i++];
            SIO_Index::Drawing file{name, names.add(name) + QStringLiteral(".kvr")};
            if (const auto* loaded = dynamic_cast<const SIO_Drawing*>(drawing.get()))
                file.unknown = loaded->unknownOfEntry;
            if (drawing->palette())
                addPalette(drawing->palette(), false);
            if (!bytes)
                fail(bytes.error().text);
            else
                addFile(entry.pathOf(file), *bytes);
            entry.drawings.push_back(std::move(file));
        }
        _index.elements.push_back(std::move(entry));
    }

    // The documents of an element's drawings, in their order. An animation has thousands of them.
    std::vector<UT_Result<QByteArray>> textsOf(const MO_ElementModule& element, const QString& module)
    {
        // So many are made between two calls of goOn.
        constexpr std::size_t kAtOnce = 64;
        using Entry = std::remove_cvref_t<decltype(element.drawings())>::const_pointer;
        std::vector<Entry> drawings;
        for (const auto& drawing : element.drawings())
            drawings.push_back(&drawing);
        std::vector<UT_Result<QByteArray>> texts(drawings.size(), QByteArray());
        for (std::size_t first = 0; first < drawings.size() && goesOn(); first += kAtOnce) {
            const std::size_t count = std::min(kAtOnce, drawings.size() - first);
            SIO_forEach(count, [&](std::size_t i) {
                const auto& [name, drawing] = *drawings[first + i];
                texts[first + i] = SIO_writeDrawing(*drawing, module + QStringLiteral(": ") + name);
            });
            _made += count;
        }
        return texts;
    }

    bool goesOn()
    {
        _stopped = _stopped || (_goOn && !_goOn(static_cast<double>(_made) / static_cast<double>(_drawings)));
        return !_stopped;
    }

    // The number of the source with these files; a new one where there is none yet.
    int sourceOf(const MO_DrawingOrigin& origin)
    {
        if (origin.files.isEmpty())
            return 0;
        SIO_Index::Source source{{}, origin.objects, origin.digest};
        for (const QString& file : origin.files)
            source.files.push_back({SIO_sourcePath(file, _home)});
        if (_loaded)
            for (const SIO_Index::Source& read : _loaded->index.sources)
                if (read.hasSameFiles(source) && read.objects == source.objects) {
                    source.files = read.files;
                    source.unknown = read.unknown;
                }
        return numberOf(source);
    }

    int numberOf(const SIO_Index::Source& source)
    {
        const auto found = std::ranges::find_if(_index.sources, [&](const auto& one) { return one.isSameAs(source); });
        const auto number = static_cast<int>(found - _index.sources.begin()) + 1;
        if (found == _index.sources.end())
            _index.sources.push_back(source);
        return number;
    }

    void addKept(const MO_Module& module)
    {
        const auto found = _loaded->kept.find(module.instanceName());
        if (found == _loaded->kept.end())
            return;
        _hasKept = true;
        SIO_Index::Element entry = newEntry(module);
        const auto source = static_cast<std::size_t>(found->second.entry.source);
        if (source > 0 && source <= _loaded->index.sources.size()) {
            entry.source = numberOf(_loaded->index.sources[source - 1]);
            entry.layer = found->second.entry.layer;
        }
        entry.reason = found->second.entry.reason;
        SIO_FileNames names;
        for (std::size_t i = 0; i < found->second.files.size(); ++i) {
            SIO_Index::Drawing file = found->second.entry.drawings[i];
            file.file = names.add(file.name) + QStringLiteral(".kvr");
            addFile(entry.pathOf(file), found->second.files[i]);
            entry.drawings.push_back(std::move(file));
        }
        _index.elements.push_back(std::move(entry));
    }

    const MO_Scene& _scene;
    QString _home;
    const SIO_Progress& _goOn;
    const SIO_Scene* _loaded;
    SIO_Index _index;
    SIO_FileNames _folders;
    std::map<UT_Id, const CM_Palette*> _palettes;
    QMap<QString, QByteArray> _files;
    bool _hasKept = false;
    std::size_t _drawings = 0;
    std::size_t _made = 0;
    bool _stopped = false;
    QString _problem;
};

} // namespace

UT_Result<QMap<QString, QByteArray>> SIO_sceneFiles(const MO_Scene& scene, const QString& home,
                                                    const SIO_Progress& goOn)
{
    return Collector(scene, home, goOn).collect();
}
