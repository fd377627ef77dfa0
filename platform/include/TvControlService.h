#pragma once

/**
 * @file
 * The television service: sources, tuner and video, each behind a control object.
 *
 * The library creates a control for a query and gives it back to `TvControlService::Destroy`,
 * except where it leaves one on purpose: after a successful SetPictureSize and after a failed
 * GetSNRLevel. A porter owns the controls in such a way that this costs no growing memory, for
 * example by handing out the same one again.
 *
 * The static members may be called from any thread. One control is used by one thread at a time,
 * unless the service handed the same one out twice.
 */

#pragma GCC visibility push(default)

/** What all controls have in common. */
class ITvControl {
public:
    virtual ~ITvControl() = default;
};

/** The source that is shown. What follows the number belongs to the service. */
struct TvSourceInfo {
    int sourceId; ///< The source's number: HDMI1 to HDMI4 are 13 to 16, HDMI5 and HDMI6 38 and 39.
};

/** Asks for the source that is shown, and changes it. */
class ISourceControl : public ITvControl {
public:
    /** Fills `info`, which the caller owns. @return 1 or more on success. */
    virtual int GetCurrentSourceInfo(TvSourceInfo* info) = 0;

    /**
     * Shows another source.
     *
     * @param sourceId       number of the source
     * @param applicationId  application that asks, zero-terminated; the library says "NoAppId"
     * @return above 0 on success
     */
    virtual int ChangeSource(int sourceId, const char* applicationId) = 0;
};

/** Asks the tuner. */
class ITunerControl : public ITvControl {
public:
    /** Tells the signal-to-noise level: 2534 is 25.34 dB. May be negative. @return 1 on success. */
    virtual int GetSNRLevel(int* hundredthsOfDecibel) = 0;
};

/** Asks for the picture size and changes it. The sizes' numbers are the service's. */
class IVideoControl : public ITvControl {
public:
    /** Tells the size. @return negative on failure. */
    virtual int GetPictureSize(int* size) = 0;

    /**
     * Changes the size.
     *
     * @param size   number of the size
     * @param apply  how the change is made, in the service's own terms; the library says 1
     * @return negative on failure
     */
    virtual int SetPictureSize(int size, int apply) = 0;
};

/**
 * Creates controls and takes them back.
 *
 * A create that fails leaves `*control` null; its result is not looked at, only that pointer is.
 * The library asks for profile 1 (the main screen), index 0.
 */
class TvControlService {
public:
    static int CreateSourceControl(int profile, int index, ISourceControl** control);
    static int CreateTunerControl(int profile, int index, ITunerControl** control);
    static int CreateVideoControl(int profile, int index, IVideoControl** control);

    /** Takes a control back, which must not be used afterwards. Null is ignored. */
    static int Destroy(ITvControl* control);
};

#pragma GCC visibility pop
