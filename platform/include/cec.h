#pragma once

/**
 * @file
 * HDMI-CEC: control of devices over the HDMI cable.
 *
 * The library brackets each query with `cec_init_proxy` and `cec_close_proxy` and looks at the
 * result of neither. Queries on several threads may overlap, so the pair has to nest.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Opens the way to the CEC service. 0 on success. */
int cec_init_proxy(void);

/** Tells the state itself, not a status: 1 on, 0 off. Other numbers are passed on as they are. */
int cec_is_enable(void);

/** Switches CEC on (1) or off (0). 0 on success, otherwise an error number. */
int cec_set_enable(int enable);

/** Closes what `cec_init_proxy` opened. 0 on success. */
int cec_close_proxy(void);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
