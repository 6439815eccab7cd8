#pragma once

#include "config/Text.h"

namespace korvel {

/// Texts: databases that are compiled from open data, and what they are made of.
struct ChartTexts {
    Text commandCharts{66370, "C&harts..."};
    Text title{66371, "Charts"};
    Text inUse{66372, "In use"};
    Text none{66373, "No databases"};
    Text counts{66374, "%d airports, %d navaids, %d fixes, %d airways"};
    Text cycle{66375, "cycle %s"};  ///< %s: four digits
    Text chooseFolder{66376, "From a &Folder..."};
    Text chooseZip{66377, "From a &Zip File..."};
    Text stop{66378, "&Stop"};
    Text take{66379, "&Use Now"};
    Text explain{
        66380,
        "New charts are compiled from the tables of OurAirports or NASR (United States), as "
        "they are downloaded, or from X-Plane's folder."};
    Text compiling{66381, "Compiling %s"};              ///< %s: folder or file
    Text compiled{66382, "%s is ready."};               ///< %s: database
    Text notCompiled{66383, "Nothing is changed: %s"};  ///< %s: why
    Text stopped{66384, "Stopped. Nothing is changed."};
    Text unknownSource{66385, "no tables that are known here"};
    Text noFolder{66386, "there is no documents folder"};
    Text unofficial{66387,
                    "No cycle is named: it counts as old from %s, 28 days after its files. That "
                    "is no official date."};  ///< %s: date
    Text taken{66388, "Taken:"};
    Text leftOut{66389, "Left out:"};
    Text malformed{66390, "Malformed lines, skipped:"};
    Text licenceOurAirports{66391,
                            "OurAirports: public domain, without any guarantee of accuracy or "
                            "fitness for use."};
    Text licenceNasr{66392, "NASR, Federal Aviation Administration: CC0."};
    Text licenceXPlane{66393, "X-Plane's data: your own copy, not to be handed on."};
    Text selectFolder{66394, "Folder with Tables"};
    Text selectZip{66395, "Zip File with Tables"};
    Text zipFilter{66396, "Zip files (*.zip)"};
    Text ready{66397, "Charts are compiled: %s takes them into use"};  ///< %s: command's name
};

inline constexpr ChartTexts kChartTexts{};

}  // namespace korvel
