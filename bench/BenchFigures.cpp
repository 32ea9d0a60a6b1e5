#include "BenchFigures.h"

#include "DeleteRenumberFigure.h"
#include "DragFrameFigure.h"
#include "DrawAllFigure.h"
#include "InsertRatioFigure.h"
#include "InsertTilesPeakFigure.h"
#include "InsertTilesRatioFigure.h"
#include "ListFigure.h"
#include "OpenGuiFigure.h"
#include "OpenListMemoryFigure.h"
#include "PaintFigure.h"
#include "RoomsFigure.h"
#include "TilesRatioFigure.h"
#include "UndoAllFigure.h"
#include "UsageRatioFigure.h"
#include "OpenListRatioFigure.h"
#include "WalkRatioFigure.h"
#include "ZoomMemoryFigure.h"

std::vector<std::unique_ptr<BenchFigure>> allBenchFigures()
{
    std::vector<std::unique_ptr<BenchFigure>> figures;
    figures.push_back(std::make_unique<WalkRatioFigure>());
    figures.push_back(std::make_unique<ListFigure>(ListFigure::Job::Open));
    figures.push_back(std::make_unique<ListFigure>(ListFigure::Job::Save));
    figures.push_back(std::make_unique<OpenListRatioFigure>());
    figures.push_back(std::make_unique<InsertRatioFigure>());
    figures.push_back(std::make_unique<InsertTilesRatioFigure>());
    figures.push_back(std::make_unique<InsertTilesPeakFigure>());
    figures.push_back(std::make_unique<PaintFigure>(PaintFigure::Kind::Ratio));
    figures.push_back(std::make_unique<PaintFigure>(PaintFigure::Kind::Milliseconds));
    figures.push_back(std::make_unique<ZoomMemoryFigure>());
    figures.push_back(std::make_unique<OpenGuiFigure>());
    figures.push_back(std::make_unique<OpenListMemoryFigure>());
    figures.push_back(std::make_unique<OpenGuiFigure>(OpenGuiFigure::Size::Max));
    figures.push_back(std::make_unique<TilesRatioFigure>());
    figures.push_back(std::make_unique<UsageRatioFigure>());
    figures.push_back(std::make_unique<DrawAllFigure>(DrawAllFigure::Kind::Milliseconds));
    figures.push_back(std::make_unique<DrawAllFigure>(DrawAllFigure::Kind::Ratio));
    figures.push_back(std::make_unique<DragFrameFigure>());
    figures.push_back(std::make_unique<DrawAllFigure>(DrawAllFigure::Kind::MaxMilliseconds));
    figures.push_back(std::make_unique<UndoAllFigure>());
    figures.push_back(std::make_unique<DeleteRenumberFigure>());
    for (RoomsFigure::Kind kind : {RoomsFigure::Kind::Frame, RoomsFigure::Kind::Pick, RoomsFigure::Kind::Update,
                                   RoomsFigure::Kind::Open, RoomsFigure::Kind::TileMemory})
        figures.push_back(std::make_unique<RoomsFigure>(kind));
    return figures;
}
