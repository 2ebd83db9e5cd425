// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SequenceBuilder: puts a sequence together, frame by frame: layers of the same name become one layer through time,
// colours go into one palette, equal drawings become one.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "jobs/import/DrawingSequence.h"

#include <QHash>

#include <functional>
#include <span>

class SequenceBuilder
{
public:
    /// @param name the sequence's, which its palette is named after
    explicit SequenceBuilder(const QString& name);

    /// Adds a frame's layers, bottom up. Frames come in ascending order. The n-th layer of a name is the same layer in
    /// every frame; layers that no file declares are told apart by their order alone. A layer that exists in earlier
    /// frames but not in this one shows nothing from this frame on.
    void addFrame(int frame, const DIO_Drawing& drawing);

    /// Adds the only frame of a sequence, in the objects that were chosen for it. Each becomes a layer.
    void addFrame(int frame, const ChosenObjects& chosen);

    /// Adds a layer in which a drawing is shown from a frame on; for readers that know all frames of a layer at once.
    ///
    /// @param shown by frame, from firstFrame on: indices of drawings, or -1 for nothing
    /// @param goOn  asked for each drawing
    /// @return whether goOn() always said to go on; if not, the sequence is unusable
    bool addLayer(const QString& name, const std::vector<std::vector<DIO_Shape>>& drawings,
                  std::span<const DIO_Paint> paints, std::span<const int> shown, int firstFrame,
                  const std::function<bool()>& goOn);

    /// Returns the sequence without its frame, size and range, which the builder does not know. Layers without a name
    /// of their own get one, and no two have the same.
    DrawingSequence take();

private:
    struct Layer
    {
        QString key; // tells the layer from others; never seen
        QString name;
        bool declared = true;
        QHash<QByteArray, int> known; // drawings by what is in them
        double reach = 0.0;           // of the drawing that the form is measured on
        SequenceLayer built;
    };

    // The index of a layer; a new one is put above the one at an index.
    std::size_t layerFor(const QString& key, const DIO_Layer& layer, std::size_t above, bool& outOfOrder);
    void expose(Layer& layer, int frame, std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> paints);
    // The key under which a layer stores what is drawn, the frame where it is new.
    int keyFor(Layer& layer, int frame, std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> paints);
    void exposeNothing(Layer& layer, int frame);
    static void setExposure(Layer& layer, int frame, int drawing);
    void addColours(std::span<const DIO_Paint> paints);
    void nameLayers();
    void giveReasons();

    QString _name;
    CM_SharedPtr<CM_Palette> _palette;
    std::vector<Layer> _layers;
    bool _orderChanges = false;
};
