#pragma once

// The data source of the Harlen family: a file holds either one image, a
// matrix of floats that is rescaled into 32-bit raw counts when it is read,
// or one set of force curves, a vector of float matrices whose rows are named
// by a list of labels.
//
// Sources, by concern:
//   HarlenOLDataSource.cpp        construction, kind tests, dates, the order of Initialize, Z transfer
//   HarlenOLDataSourceImage.cpp   the image: data parameters, system info, the rescaled raw counts
//   HarlenOLDataSourceCurves.cpp  the force curves: spectroscopy parameters, curve items and labels
//   HarlenOLDataSourceScales.cpp  scale and sensitivity changes, parameter lists
//   HarlenOLDataSourceSave.cpp    writing the image back into a file

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Include/Infrastructure/OrxDataCore/Matrices.h"
#include "QlDataAnalysisExt/Core/OLDataSource.h"

struct OLDataItemLoadRecord;

class HarlenOLDataSource : public OLDataSource {
public:
    HarlenOLDataSource(DataFilePtr dataFile, ICreateColorTableCallback* callback);
    ~HarlenOLDataSource() override;

    // ---- HarlenOLDataSource.cpp ----
    void Initialize() override;
    OLDateTime GetDateTime() const override;
    bool IsImageFile() const override;
    bool IsForceFile() const override;
    bool IsHarlenFile() const override;

    // ---- HarlenOLDataSourceCurves.cpp ----
    // The text of label k, for point p of a file with several points and for
    // the channel c it is plotted against: "Ch c: Point p: name", where the
    // name drops a first "Trace ". A negative k is the time axis.
    std::string LabelText(int c, int p, int k) const;
    // The unit system of a source is decided by the first deflection row that
    // the process reads; this makes the next one decide again.
    static void ResetFirstDeflectionRowForTesting();

    // ---- HarlenOLDataSourceScales.cpp ----
    void SetZSensitivity(unsigned channel, double value, std::string units, bool companions) override;
    void SetDataScale(unsigned channel, UValue& value, bool flag) override;
    void SetChannelParameters(unsigned channel, float factor) override;
    // A Harlen file holds one image or one set of curves: nothing to remove.
    void RemoveChannel(unsigned channel) override;
    std::vector<std::string> GetDataPlistNames() override;
    std::string GetParameterListForItem(const std::string& section, const std::string& key) override;

    // ---- HarlenOLDataSourceSave.cpp ----
    // Saves the file under its own path: its one channel is the whole file.
    bool SaveChannelAs(unsigned channel, const std::string& path, bool flag) override;
    bool WriteDataFile(const DataFilePtr& file, bool flag) override;
    void WriteChannelHeader(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                            const std::string& sectionName, const std::string& key, const std::string& value,
                            const std::string& followKey) override;
    bool WriteChannelData(const DataFilePtr& file, const DataContainerPtr& section, unsigned channel,
                          const std::string& sectionName, const std::string& key) override;
    DataFilePtr CreateDataFile(const std::string& path) override;

    // The family's own values.
    const std::string& GetForceLabelsText() const { return forceLabelsText; }
    const std::vector<std::string>& GetForceLabels() const { return forceLabels; }
    bool HasSixteenLabels() const { return hasSixteenLabels; }
    UValue GetDataRange() const { return dataRange; }
    double GetDataSpan() const { return dataSpan; }
    std::string GetZTransferUnit() const { return zTransferUnit; }
    double GetDeflectionSensitivity() const { return deflectionSensitivity; }
    std::string GetDeflectionUnit() const { return deflectionUnit; }
    double GetSpringConstant() const { return springConstant; }
    // Values of the record that the operation table has no getter for.
    std::string GetFeedbackText() const { return feedbackText; }
    double GetIntegralGain() const { return integralGain; }
    double GetProportionalGain() const { return proportionalGain; }
    double GetForceDefault() const { return forceDefault; }
    std::string GetAxisName() const { return axisName; }
    std::uint64_t GetDataOffset() const { return dataOffset; }

private:
    // What the image branch reads for the steps after it.
    struct ImageTexts {
        std::string zTransferCoefficient;
        std::string zUnit;
        std::string leveling;
        int resolutionX = 0;
        int resolutionY = 0;
    };

    // ---- HarlenOLDataSource.cpp ----
    DataContainerPtr section(const std::string& name) const;
    static bool isHarlenDataFile(const DataFilePtr& file);
    static void logFailure(int severity, const std::string& text);
    bool readOverview();
    // The integer key into the data offset of the source; false when absent.
    bool readOffset(const DataContainerPtr& container, const std::string& key);
    void applyZTransfer(OLDataItemLoadRecord& record, const ImageTexts& texts);
    // The unit system text, in both places of the record that hold it.
    void setUnitSystem(const std::string& text);

    // ---- HarlenOLDataSourceImage.cpp ----
    bool readDataParameters(OLDataItemLoadRecord& record, ImageTexts& texts);
    void readColorSettings(const DataContainerPtr& parameters, OLDataItemLoadRecord& record);
    void readPreProcessing(const ImageTexts& texts, OLDataItemLoadRecord& record);
    void readSystemInfo();
    bool makeImageItem(OLDataItemLoadRecord& record, const ImageTexts& texts);

    // ---- HarlenOLDataSourceCurves.cpp ----
    void readSpectroscopy(OLDataItemLoadRecord& record);
    bool makeCurveItems(OLDataItemLoadRecord& record);
    void addForceCurveItem(OLDataItemLoadRecord& record, const Orx::DataCore::FloatMatrixVector& curves, int p, int k,
                           int m, int a);
    std::string label(int index) const;

    // ---- HarlenOLDataSourceSave.cpp ----
    // The item's samples as the values of the file, into its "RawData".
    void writeSamples(const DataContainerPtr& data, const OLDataItem& item) const;

    // ---- the family's fields ----
    std::string forceLabelsText;
    std::vector<std::string> forceLabels;
    bool hasSixteenLabels = false;
    // The image as raw counts; the image item points into it.
    std::shared_ptr<Orx::DataCore::IntMatrix> imageMatrix;
    UValue dataRange;
    double dataSpan = 0.0;
    std::string zTransferUnit;
    double deflectionSensitivity = 1.0;
    std::string deflectionUnit;
    double springConstant = 1.0;
    // One row of raw counts for each curve item, which points into it.
    std::vector<std::shared_ptr<Orx::DataCore::IntMatrix>> curveMatrices;
};
