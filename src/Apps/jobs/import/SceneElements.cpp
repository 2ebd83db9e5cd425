// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Elements know the files that they were read from (MO_ElementModule::origin).
#include "jobs/import/SceneElements.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <map>

std::vector<MO_ElementModule*> allElements(const MO_Scene& scene)
{
    std::vector<MO_ElementModule*> elements;
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* const element = dynamic_cast<MO_ElementModule*>(&module))
            elements.push_back(element);
    });
    return elements;
}

QStringList originPaths(const QStringList& files)
{
    QStringList paths;
    for (const QString& file : files)
        paths << QDir::cleanPath(QFileInfo(file).absoluteFilePath());
    return paths;
}

std::vector<MO_ElementModule*> elementsFrom(const MO_Scene& scene, const QStringList& files)
{
    std::vector<MO_ElementModule*> elements = allElements(scene);
    std::erase_if(elements, [&](const MO_ElementModule* element) { return element->origin().files != files; });
    return elements;
}

std::vector<QStringList> originsOf(const MO_Scene& scene)
{
    std::vector<QStringList> all;
    for (const MO_ElementModule* const element : allElements(scene)) {
        const QStringList& files = element->origin().files;
        if (!files.isEmpty() && std::ranges::find(all, files) == all.end())
            all.push_back(files);
    }
    return all;
}

std::array<AT_DoubleAttr*, 4> placingAttrs(const MO_ElementModule& element)
{
    return {element.scaleX(), element.scaleY(), element.positionX(), element.positionY()};
}

ElementPlacing placingOf(const MO_ElementModule& element)
{
    ElementPlacing placing{};
    std::ranges::transform(placingAttrs(element), placing.begin(),
                           [](const AT_DoubleAttr* attr) { return attr->localValue(); });
    return placing;
}

ElementPlacing usualPlacing(const std::vector<MO_ElementModule*>& elements)
{
    std::map<ElementPlacing, int> counts;
    for (const MO_ElementModule* const element : elements)
        ++counts[placingOf(*element)];
    return std::ranges::max_element(counts, {}, &std::map<ElementPlacing, int>::value_type::second)->first;
}
