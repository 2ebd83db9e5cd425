// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The index in a scene's main file: the list of palettes, and which file holds which drawing of which element. The
// loader opens only files from the index; it never guesses names.
//
//     <quarvelScene version="1">
//       <palettes>
//         <palette id="00000000000000a1"/>
//         <palette id="00000000000000a2" inScene="false"/>
//       </palettes>
//       <elements>
//         <element folder="Hero" layer="Hero" module="Hero" reason="a part by itself" source="1">
//           <drawing file="1.kvr" name="1"/>
//         </element>
//       </elements>
//       <sources>
//         <source>
//           <file path="../hero.svg"/>
//         </source>
//       </sources>
//       <scene .../>
//     </quarvelScene>
#pragma once

#include "QuarvelBaseCore/UT_Id.h"
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelSceneIO/private/SIO_XmlContext.h"

#include <algorithm>
#include <vector>

/// The index, with the unknown parts that a newer version wrote.
struct SIO_Index
{
    struct Palette
    {
        UT_Id id;
        bool inScene = true; ///< false for a palette that drawings use but the scene does not list
        PO_UnknownXml unknown = {};
        int line = 0;

        /// The path of its file within the scene's folder.
        QString path() const;
    };
    struct Drawing
    {
        QString name;
        QString file;
        PO_UnknownXml unknown = {};
        int line = 0;
    };
    struct Element
    {
        QString module; ///< the name of the module that the drawings belong to
        QString folder;
        std::vector<Drawing> drawings = {};
        int source = 0;      ///< the number of the source that the drawings were read from; 0: nobody knows
        QString layer = {};  ///< of the source
        QString reason = {}; ///< why the drawings are an object; empty: nobody knows
        PO_UnknownXml unknown = {};
        int line = 0;

        /// The path of a drawing's file within the scene's folder.
        QString pathOf(const Drawing& drawing) const;
    };

    struct SourceFile
    {
        QString path; ///< relative to the scene's folder where that is possible
        PO_UnknownXml unknown = {};
    };
    /// Files that were read together. The first source has number 1.
    struct Source
    {
        std::vector<SourceFile> files;
        QString objects = {}; ///< how their objects were chosen
        QString digest = {};  ///< of the files as they were read
        PO_UnknownXml unknown = {};

        bool hasSameFiles(const Source& other) const
        {
            return std::ranges::equal(files, other.files, {}, &SourceFile::path, &SourceFile::path);
        }
        bool isSameAs(const Source& other) const
        {
            return hasSameFiles(other) && objects == other.objects && digest == other.digest;
        }
    };

    std::vector<Palette> palettes;
    std::vector<Element> elements;
    std::vector<Source> sources;
    PO_UnknownXml unknown;
    PO_UnknownXml unknownOfPalettes;
    PO_UnknownXml unknownOfElements;
    PO_UnknownXml unknownOfSources;
    QDomElement scene; ///< of the document that was read

    /// The paths of all files except the main file.
    QStringList paths() const;
};

/// The main file's name.
extern const QString kSIO_mainFile;

/// Reads the index. Refuses paths that lead out of the scene's folder or are repeated.
UT_Result<SIO_Index> SIO_readIndex(const QDomElement& root, const SIO_XmlContext& context);

/// The bytes of the main file.
QByteArray SIO_writeMainFile(const SIO_Index& index, const PIO_XmlWritable& scene);

/// True if a document is a scene's main file.
bool SIO_isMainFile(const QDomElement& root);
