# SPDX-FileCopyrightText: 2026 KelmoWare
# SPDX-License-Identifier: LGPL-2.1-or-later

# 50 MHz from the board's oscillator.
create_clock -name clk -period 20.000 [get_ports clk]
set_clock_uncertainty 0.200 [get_clocks clk]

# The button is no signal of this clock; two registers receive it.
set_false_path -from [get_ports button_n]

# Nobody samples the LEDs.
set_false_path -to [get_ports {led_blink led_breathe}]
