// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

// Top level: a status LED that blinks once a second, and a second one that
// breathes. Both stop while the button is held.
module blinky #(
    parameter CLOCK_HZ = 50_000_000
) (
    input  wire clk,
    input  wire button_n,   // low while pressed; not synchronous to clk
    output wire led_blink,
    output wire led_breathe
);

    // Two registers bring the button into the clock domain.
    reg [1:0] button_sync = 2'b00;
    always @(posedge clk)
        button_sync <= {button_sync[0], button_n};
    wire run = button_sync[1];

    // Reset for the first four clocks after configuration.
    reg [3:0] started = 4'b0000;
    always @(posedge clk)
        started <= {started[2:0], 1'b1};
    wire rst_n = started[3];

    // Half a second per level of the blinking LED.
    wire half_second;
    counter #(
        .LIMIT(CLOCK_HZ / 2)
    ) u_half_second (
        .clk    (clk),
        .rst_n  (rst_n),
        .enable (run),
        .count  (),
        .wrapped(half_second)
    );

    reg level = 1'b0;
    always @(posedge clk)
        if (half_second)
            level <= ~level;
    assign led_blink = level;

    // 512 steps of brightness, up and down again, in about two seconds.
    wire step;
    counter #(
        .LIMIT(CLOCK_HZ / 256)
    ) u_step (
        .clk    (clk),
        .rst_n  (rst_n),
        .enable (run),
        .count  (),
        .wrapped(step)
    );

    reg [8:0] phase = 9'd0;
    always @(posedge clk)
        if (step)
            phase <= phase + 9'd1;
    wire [7:0] brightness = phase[8] ? ~phase[7:0] : phase[7:0];

    pwm u_pwm (
        .clk (clk),
        .duty(brightness),
        .q   (led_breathe)
    );

endmodule
