// A chart as a picture: for the clipboard, for files, for paper.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <string>
#include <vector>

#include "desktop/charts/chart_scene.h"

class QPrinter;

namespace goods {

enum class PictureFormat { Png, Svg };

// At twice the scene's size, so that it stays sharp in a document.
QImage ImageOf(ChartScene& scene);
// The bytes of a file in that format.
QByteArray PictureBytes(ChartScene& scene, PictureFormat format);

// Writes the picture whole or not at all (company/files/whole_file.h); throws FileError, and then a file that
// stood at path is untouched. Nothing is written over the forbidden files.
void SavePicture(ChartScene& scene, PictureFormat format, const std::string& path,
                 const std::vector<std::string>& forbidden);

// One page of A4, landscape; draws the scene anew in the shape of the page.
void SetUpChartPage(QPrinter& printer);
void PrintPicture(ChartScene& scene, QPrinter& printer);

}  // namespace goods
