// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The Python module: what is given is taken out of Python's objects first, then the work is done without Python's lock.
#include "Arrays.h"
#include "Library.h"
#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelNormalMap/NM_MaskPicture.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Surfaces.h"
#include "jobs/drawing/GlossJob.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ObjectWords.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/frames/SurfaceFrames.h"
#include "jobs/frames/UsualWidth.h"
#include "jobs/text/WrongValue.h"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <filesystem>

namespace py = pybind11;

namespace {

using Also = std::vector<std::string>;
using Gloss = std::map<std::string, double>;

/// vallorin.Error
class PythonError : public std::runtime_error
{
public:
    explicit PythonError(const UT_Error& error) : std::runtime_error(error.sentence().toStdString()) {}
};

template<typename T>
T orRaise(UT_Result<T> result)
{
    if (!result)
        throw PythonError(result.error());
    return std::move(*result);
}

void orRaise(const UT_Result<void>& result)
{
    if (!result)
        throw PythonError(result.error());
}

QString textOf(const std::filesystem::path& path)
{
    try {
        return QString::fromStdU16String(path.u16string());
    } catch (const std::filesystem::filesystem_error&) {
        throw PythonError({QStringLiteral("%1: the name is not UTF-8, and no other names are read; rename it")
                               .arg(QString::fromStdString(path.string()))});
    }
}

int indexOf(const QStringList& words, const std::string& word, const char* what)
{
    const auto index = words.indexOf(QString::fromStdString(word));
    if (index >= 0)
        return static_cast<int>(index);
    throw PythonError(
        wrongValue(QString::fromLatin1(what), words.join(QStringLiteral(", ")), QString::fromStdString(word)));
}

FormSettings formOf(const std::string& objects, const std::string& shape, double volume)
{
    if (!(volume >= 0.0 && volume <= FormSettings::kMaxVolume))
        throw PythonError({QStringLiteral("volume takes 0 to %1, not %2").arg(FormSettings::kMaxVolume).arg(volume)});
    return {.objects = static_cast<ObjectChoice>(indexOf(objectChoiceWords(), objects, "objects")),
            .shape = static_cast<FormShape>(indexOf(formShapeWords(), shape, "shape")),
            .volume = volume};
}

UT_Result<Maps> mapsOfFrame(const ShownFrame& frame, const SurfaceWishes& wishes, const QStringList& warnings)
{
    UT_Result<IIO_Picture> layers = layersOf(frame);
    if (!layers)
        return layers.error();
    Maps maps{std::move(*layers), warnings};
    if (const auto added = addSurfaces(maps, frame, wishes); !added)
        return added.error();
    return maps;
}

UT_Result<void> addGlossOf(const ReadDrawing& read, const NormalMapSettings& settings, const GlossSettings& gloss,
                           const Math::Box2di& window, Maps& maps)
{
    const auto painted = renderGloss(read.drawing, settings, gloss);
    if (!painted)
        return painted.error();
    auto picture = NM_paintedMaskPicture(*painted->picture, window, IIO_SampleType::FLOAT, false, 0);
    if (!picture)
        return picture.error();
    maps.gloss = std::move(*picture);
    for (const QColor& colour : painted->missing)
        maps.warnings << QStringLiteral("no place has the colour %1 of gloss").arg(colour.name());
    return {};
}

Maps mapsOf(const ReadDrawing& read, const NormalMapSettings& settings, const SurfaceWishes& wishes)
{
    const auto work = [&]() -> UT_Result<Maps> {
        const auto frame = renderNormalMap(read.drawing, settings, wishes.parts());
        if (!frame)
            return frame.error();
        UT_Result<Maps> maps = mapsOfFrame(*frame, wishes, read.warnings);
        if (!maps || !wishes.gloss.isAny())
            return maps;
        if (const auto added = addGlossOf(read, settings, wishes.gloss, frame->window, *maps); !added)
            return added.error();
        return maps;
    };
    return orRaise(UT_withinMemory(QStringLiteral("this drawing"), QStringLiteral("choose a smaller size"), work));
}

NormalMapSettings settingsOf(const FormSettings& form, int width)
{
    if (width < 0)
        throw PythonError({QStringLiteral("width takes a number of pixels, not %1").arg(width)});
    NormalMapSettings settings;
    settings.form = form;
    if (width > 0)
        settings.size = QSize(width, 0);
    return settings;
}

Maps mapsOfArray(const py::array_t<std::uint8_t, py::array::c_style>& array, const std::string& objects,
                 const std::string& shape, double volume, int width, const Also& also, const Gloss& gloss)
{
    const FormSettings form = formOf(objects, shape, volume);
    const NormalMapSettings settings = settingsOf(form, width);
    const SurfaceWishes wishes = orRaise(surfaceWishes(also, gloss));
    const QImage image = orRaise(imageOf(array));
    const py::gil_scoped_release others;
    orRaise(startLibrary());
    return mapsOf(chosenDrawing(DIO_bitmapDrawing(image, QStringLiteral("drawing")), form), settings, wishes);
}

Maps mapsOfFile(const std::filesystem::path& path, const std::string& objects, const std::string& shape, double volume,
                int width, const Also& also, const Gloss& gloss)
{
    const FormSettings form = formOf(objects, shape, volume);
    const NormalMapSettings settings = settingsOf(form, width);
    const SurfaceWishes wishes = orRaise(surfaceWishes(also, gloss));
    const py::gil_scoped_release others;
    orRaise(startLibrary());
    return mapsOf(orRaise(readDrawing(textOf(path), form)), settings, wishes);
}

class Scene;

/// What vallorin.Scene.render gives: an iterator that renders a frame when it is asked for the next one.
class Frames
{
public:
    /// @param scene must outlive this object
    Frames(const Scene& scene, std::vector<int> numbers, const RenderFramesSettings& settings,
           const SurfaceWishes& wishes);

    Maps next();

private:
    const Scene& _scene;
    const std::vector<int> _numbers;
    const RenderFramesSettings _settings;
    const SurfaceWishes _wishes;
    const SurfaceFrames _greys; // of the settings
    std::size_t _next = 0;
};

/// vallorin.Scene
class Scene
{
public:
    static std::unique_ptr<Scene> open(const std::filesystem::path& folder)
    {
        const py::gil_scoped_release others;
        orRaise(startLibrary());
        return std::unique_ptr<Scene>(new Scene(orRaise(SIO_loadScene(textOf(folder)))));
    }

    int firstFrame() const { return _loaded.scene->firstFrame(); }
    int lastFrame() const { return _loaded.scene->lastFrame(); }
    const QStringList& warnings() const { return _loaded.warnings; }

    const ShownModule& shown() const { return *_shown; }

    std::unique_ptr<Frames> render(const py::iterable& frames, int width, const Also& also, const Gloss& gloss) const
    {
        std::vector<int> numbers;
        for (const py::handle& frame : frames)
            numbers.push_back(checked(frame.cast<int>()));
        if (width < 1)
            throw PythonError({QStringLiteral("width takes a number of pixels, not %1").arg(width)});
        const SurfaceWishes wishes = orRaise(surfaceWishes(also, gloss));
        const py::gil_scoped_release others;
        return std::make_unique<Frames>(*this, std::move(numbers), settingsFor(width, wishes), wishes);
    }

private:
    explicit Scene(SIO_LoadedScene loaded) : _loaded(std::move(loaded))
    {
        MO_Module* const shown = _loaded.scene->outputModule();
        if (!shown)
            throw PythonError({QStringLiteral("the scene has no display")});
        _shown = std::make_unique<ShownModule>(*shown);
    }

    // Of a run whose pictures are gloss, where that is wanted.
    RenderFramesSettings settingsFor(int width, const SurfaceWishes& wishes) const
    {
        RenderFramesSettings settings;
        settings.parameters = {RD_RenderParameters::IMAGE_PROCESSING_16BIT,
                               {width, _loaded.scene->heightInPixels(width)}};
        settings.picture.floatFile = true;
        settings.content = wishes.gloss.isAny() ? FrameContent::GLOSS : FrameContent::PICTURE;
        settings.gloss = wishes.gloss;
        return settings;
    }

    int checked(int frame) const
    {
        if (frame >= firstFrame() && frame <= lastFrame())
            return frame;
        throw PythonError({QStringLiteral("the scene's frames are %1 to %2, and %3 is none of them")
                               .arg(firstFrame())
                               .arg(lastFrame())
                               .arg(frame)});
    }

    SIO_LoadedScene _loaded;
    std::unique_ptr<ShownModule> _shown;
};

Frames::Frames(const Scene& scene, std::vector<int> numbers, const RenderFramesSettings& settings,
               const SurfaceWishes& wishes)
    : _scene(scene)
    , _numbers(std::move(numbers))
    , _settings(settings)
    , _wishes(wishes)
    , _greys(scene.shown(), _settings)
{}

Maps Frames::next()
{
    if (_next >= _numbers.size())
        throw py::stop_iteration();
    // Taken under Python's lock, so that threads that share the iterator get different frames.
    const int frame = _numbers[_next++];
    const py::gil_scoped_release others;
    const auto rendered = _scene.shown().render(frame, _settings.parameters, _wishes.parts());
    if (!rendered)
        throw PythonError(rendered.error());
    Maps maps = orRaise(mapsOfFrame(*rendered, _wishes, {}));
    if (_wishes.gloss.isAny())
        maps.gloss = orRaise(_greys.render(frame, {}));
    return maps;
}

// A picture that was asked for.
py::array_t<float> askedFor(const std::optional<IIO_Picture>& picture, const char* what, const char* how)
{
    if (!picture)
        throw PythonError({QStringLiteral("there is no %1: ask for it with %2")
                               .arg(QString::fromLatin1(what), QString::fromLatin1(how))});
    return channelsOf(*picture, 0, 1);
}

std::vector<std::string> texts(const QStringList& list)
{
    std::vector<std::string> all;
    for (const QString& text : list)
        all.push_back(text.toStdString());
    return all;
}

} // namespace

PYBIND11_MODULE(_vallorin, module)
{
    module.doc() = "Volume for flat drawings";
    py::register_exception<PythonError>(module, "Error", PyExc_RuntimeError).attr("__module__") = "vallorin";
    py::class_<Maps>(module, "Maps")
        .def_property_readonly("normals", [](const Maps& maps) { return channelsOf(maps.layers, 0, 3); })
        .def_property_readonly("elevation", [](const Maps& maps) { return channelsOf(maps.layers, 3, 1); })
        .def_property_readonly("coverage", [](const Maps& maps) { return channelsOf(maps.layers, 4, 1); })
        .def_property_readonly("height",
                               [](const Maps& maps) { return askedFor(maps.height, "height", "also=[\"height\"]"); })
        .def_property_readonly(
            "occlusion", [](const Maps& maps) { return askedFor(maps.occlusion, "occlusion", "also=[\"occlusion\"]"); })
        .def_property_readonly(
            "numbers",
            [](const Maps& maps) {
                return askedFor(maps.numbers, "numbers", "also=[\"numbers\"]").attr("astype")("int32");
            })
        .def_property_readonly("gloss",
                               [](const Maps& maps) { return askedFor(maps.gloss, "gloss", "gloss={\"#9aa\": 0.8}"); })
        .def_property_readonly("warnings", [](const Maps& maps) { return texts(maps.warnings); });
    py::class_<Frames>(module, "_Frames")
        .def("__iter__", [](Frames& frames) -> Frames& { return frames; })
        .def("__next__", &Frames::next);
    py::class_<Scene>(module, "Scene")
        .def_static("open", &Scene::open, py::arg("folder"))
        .def_property_readonly("first_frame", &Scene::firstFrame)
        .def_property_readonly("last_frame", &Scene::lastFrame)
        .def_property_readonly("warnings", [](const Scene& scene) { return texts(scene.warnings()); })
        .def("render", &Scene::render, py::keep_alive<0, 1>(), py::arg("frames"), py::kw_only(),
             py::arg("width") = kUsualWidth, py::arg("also") = Also(), py::arg("gloss") = Gloss());
    const auto define = [&](auto function) {
        module.def("normal_map", function, py::arg("drawing"), py::kw_only(), py::arg("objects") = "auto",
                   py::arg("shape") = "auto", py::arg("volume") = 1.0, py::arg("width") = 0, py::arg("also") = Also(),
                   py::arg("gloss") = Gloss());
    };
    define(&mapsOfFile);
    define(&mapsOfArray);
    py::module_::import("atexit").attr("register")(py::cpp_function(&endLibrary));
}
